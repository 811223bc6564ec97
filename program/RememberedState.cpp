#include "program/RememberedState.h"

#include "base/Paths.h"
#include "program/Zoom.h"

namespace {

constexpr TextView WidthKey = u"width";
constexpr TextView HeightKey = u"height";
constexpr TextView ZoomKey = u"zoom";

}  // namespace

RememberedState::RememberedState(Files& files, Text path)
    : m_files(files), m_file(files, std::move(path)) {}

std::optional<WindowSize> RememberedState::Size(TextView window) const {
  const std::optional<int> width = Number(window, WidthKey, 1, LargestSide);
  const std::optional<int> height = Number(window, HeightKey, 1, LargestSide);
  if (!width || !height) return std::nullopt;
  return WindowSize{*width, *height};
}

void RememberedState::KeepSize(TextView window, WindowSize size) {
  Keep([&](ProfileText& file) {
    file.SetValue(window, WidthKey, NumberText(size.width));
    file.SetValue(window, HeightKey, NumberText(size.height));
  });
}

std::optional<int> RememberedState::Zoom(TextView window) const {
  return Number(window, ZoomKey, SmallestZoom, LargestZoom);
}

void RememberedState::KeepZoom(TextView window, int percent) {
  Keep([&](ProfileText& file) { file.SetValue(window, ZoomKey, NumberText(percent)); });
}

std::optional<int> RememberedState::Number(TextView window, TextView key, int least,
                                           int most) const {
  const int number = m_file.GetInt(window, key, least - 1);
  if (number < least || number > most) return std::nullopt;
  return number;
}

void RememberedState::Keep(const std::function<void(ProfileText&)>& change) {
  (void)m_files.MakeFolder(Text(FolderPart(m_file.Path())));
  (void)m_file.Change(change);
}
