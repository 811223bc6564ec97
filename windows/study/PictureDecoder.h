#pragma once

#include "study/PictureHeader.h"

#include <QImage>
#include <QSize>

#include <functional>
#include <string>

/// What became of a picture file.
struct DecodedPicture {
  PictureFault fault = PictureFault::None;
  QImage image = {};  ///< null when there is a fault
  QSize fullSize =
      {};  ///< pixels of the file's picture, turned as it asks for; `image` may have fewer
};

/// Decodes a picture that fits into `bounds` (pixels), scaled down where the file's is larger, and
/// turned as the file asks for. Only files that pass ReadPictureHeader reach a decoder, and only
/// that of their own format.
/// @param path  bytes of the path; only a regular file is read
/// @param mayGoOn  asked again and again while decoding, and false ends it with TooSlow: the
/// decoder
///        gets no more of the file, finishes what it has, and that is thrown away
DecodedPicture DecodePictureFile(const std::string& path, QSize bounds,
                                 const std::function<bool()>& mayGoOn);

/// The same of a file's content.
DecodedPicture DecodePicture(const std::string& content, QSize bounds,
                             const std::function<bool()>& mayGoOn);
