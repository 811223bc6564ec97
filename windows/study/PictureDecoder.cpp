#include "windows/study/PictureDecoder.h"

#include "base/SystemFile.h"

#include <QImageReader>

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <new>

namespace {

/// A file's content, for as long as there is time for it.
class TimedBytes : public QIODevice {
 public:
  TimedBytes(const std::string& content, const std::function<bool()>& mayGoOn)
      : m_content(content), m_mayGoOn(mayGoOn) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
  }

  bool WasCutShort() const { return m_cutShort; }

  qint64 size() const override { return static_cast<qint64>(m_content.size()); }
  bool atEnd() const override { return m_cutShort || pos() >= size(); }

 protected:
  qint64 readData(char* data, qint64 most) override {
    if (m_cutShort || !m_mayGoOn()) {
      m_cutShort = true;
      return -1;
    }
    const qint64 count = std::clamp<qint64>(size() - pos(), 0, most);
    std::memcpy(data, m_content.data() + pos(), static_cast<std::size_t>(count));
    return count;
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  const std::string& m_content;
  const std::function<bool()>& m_mayGoOn;
  bool m_cutShort = false;
};

const char* DecoderOf(PictureFormat format) {
  switch (format) {
    case PictureFormat::Bmp:
      return "bmp";
    case PictureFormat::Jpeg:
      return "jpeg";
    case PictureFormat::Gif:
      return "gif";
  }
  return "";
}

/// The toolkit has a limit of its own for one picture, lower than ours.
void RaiseTheToolkitsLimit() {
  constexpr int Mebibytes = static_cast<int>(MaxPicturePixels * 4 / (1 << 20)) + 1;
  static const bool raised = (QImageReader::setAllocationLimit(Mebibytes), true);
  (void)raised;
}

DecodedPicture Decode(const std::string& content, const PictureHeader& header, QSize bounds,
                      const std::function<bool()>& mayGoOn) {
  RaiseTheToolkitsLimit();
  TimedBytes device(content, mayGoOn);
  QImageReader reader(&device, DecoderOf(header.format));
  reader.setAutoDetectImageFormat(false);
  reader.setDecideFormatFromContent(false);
  reader.setAutoTransform(true);

  DecodedPicture picture;
  const QSize size(static_cast<int>(header.width), static_cast<int>(header.height));
  const bool lies = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
  picture.fullSize = lies ? size.transposed() : size;
  const QSize room = lies ? bounds.transposed() : bounds;
  if (size.width() > room.width() || size.height() > room.height()) {
    reader.setScaledSize(size.scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
  }
  picture.image = reader.read();
  if (device.WasCutShort()) return {.fault = PictureFault::TooSlow};
  if (picture.image.isNull()) return {.fault = PictureFault::Unreadable};
  return picture;
}

}  // namespace

DecodedPicture DecodePicture(const std::string& content, QSize bounds,
                             const std::function<bool()>& mayGoOn) {
  PictureHeader header;
  const PictureFault fault = ReadPictureHeader(content, header);
  if (fault != PictureFault::None) return {.fault = fault};
  if (!mayGoOn()) return {.fault = PictureFault::TooSlow};
  return Decode(content, header, bounds, mayGoOn);
}

DecodedPicture DecodePictureFile(const std::string& path, QSize bounds,
                                 const std::function<bool()>& mayGoOn) try {
  // Not blocking: a pipe under a picture's name would wait for its other end.
  const Descriptor file = OpenFile(path, O_RDONLY | O_NONBLOCK);
  std::string content;
  const FileStatus status =
      file.IsOpen() ? ReadAll(file.Number(), content) : FileStatus::FileNotFound;
  if (status == FileStatus::OutOfMemory) return {.fault = PictureFault::TooLarge};
  if (status != FileStatus::Ok) return {.fault = PictureFault::Unreadable};
  return DecodePicture(content, bounds, mayGoOn);
} catch (const std::bad_alloc&) {
  return {.fault = PictureFault::TooLarge};
}
