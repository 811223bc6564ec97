#include "cards/CardStack.h"

#include <algorithm>
#include <utility>

std::size_t CardStack::Place(int card, int side, Kind kind) {
  if (card < 0 || card > MaxCards || side < Front || side > Back) {
    throw Fault(FileStatus::SubscriptOutOfRange);
  }
  return (static_cast<std::size_t>(card) * 2 + static_cast<std::size_t>(side)) * KindCount + kind;
}

CardStack::Field CardStack::FieldAt(int card, int side, Kind kind) const {
  const std::size_t place = Place(card, side, kind);
  return place < m_fields.size() ? m_fields[place] : Field{};
}

Text CardStack::Media(Field field) const {
  return field.inMediaFolder ? Text(m_mediaFolder).append(View(field)) : Text(View(field));
}

void CardStack::SetSideText(int card, int side, TextView text) {
  Set(card, side, TextField, text, false);
}

void CardStack::SetSideSound(int card, int side, TextView path) {
  SetMedia(card, side, SoundField, path);
}

void CardStack::SetSidePicture(int card, int side, TextView path) {
  SetMedia(card, side, PictureField, path);
}

void CardStack::SetMediaFolder(TextView folder) {
  if (m_fields.empty()) m_mediaFolder = folder;
}

void CardStack::SetMedia(int card, int side, Kind kind, TextView path) {
  const bool inMediaFolder = !m_mediaFolder.empty() && path.starts_with(m_mediaFolder);
  Set(card, side, kind, inMediaFolder ? path.substr(m_mediaFolder.size()) : path, inMediaFolder);
}

void CardStack::Set(int card, int side, Kind kind, TextView text, bool inMediaFolder) {
  const std::size_t place = Place(card, side, kind);
  if (place >= m_fields.size()) {
    if (text.empty() && !inMediaFolder) return;
    m_fields.resize(Place(card, Back, PictureField) + 1);
  }
  Field& field = m_fields[place];
  field.inMediaFolder = inMediaFolder ? 1 : 0;
  if (text.size() > field.length) {
    m_unused += field.length;
    field.offset = static_cast<std::uint32_t>(m_block.size());
    m_block.append(text);  // also right when `text` lies in the block itself
  } else {
    m_unused += field.length - text.size();
    std::copy(text.begin(), text.end(), m_block.begin() + field.offset);
  }
  field.length = static_cast<std::uint32_t>(text.size()) & 0x7FFFFFFFU;
  if (m_unused > m_block.size() / 2 + 1024) DropUnused();
}

void CardStack::DropUnused() {
  Text block;
  block.reserve(m_block.size() - std::min(m_unused, m_block.size()));
  for (Field& field : m_fields) {
    const TextView text = View(field);
    field.offset = static_cast<std::uint32_t>(block.size());
    block.append(text);
  }
  m_block = std::move(block);
  m_unused = 0;
}

void CardStack::Shrink() {
  if (m_unused > 0) DropUnused();
  m_block.shrink_to_fit();
  m_fields.shrink_to_fit();
}
