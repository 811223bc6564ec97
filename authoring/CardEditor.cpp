#include "authoring/CardEditor.h"

#include <algorithm>
#include <memory>

FileStatus ProbeStackFile(const StackStore& stacks, Files& files) {
  constexpr auto ProbeName = u"b7c891aq.6nq";
  if (stacks.StackFileNumber != nullptr) return FileStatus::FileAlreadyOpen;
  std::string content;
  return files.Read(ProbeName, content);
}

int CardEditor::ScrollMaximum() const { return std::max(Stack().CardCount - (RowsPerPage - 1), 1); }

Text CardEditor::RowText(int row, int side) const {
  const int card = m_topCard + row;
  return card <= Stack().CardCount ? Text(Stack().SideText(card, side)) : Text();
}

bool CardEditor::IsRowStruckOut(int row) const {
  const int card = m_topCard + row;
  return card <= Stack().CardCount && IsMarked(card);
}

Text CardEditor::PositionText() const {
  return NumberText(m_topCard + m_selRow) + u"/" + NumberText(Stack().CardCount);
}

CardFields CardEditor::ShownFields() const {
  CardFields fields;
  if (m_selRow >= 0) fields = FieldsOf(Stack(), m_curCard);
  for (SideFields& side : fields.sides) side.text = Text(TrimRight(side.text));
  return fields;
}

bool CardEditor::CanSelectRow(int row, int side) const {
  if (m_topCard + row > Stack().CardCount) return false;
  const bool noText = RowText(row, Front).empty() && RowText(row, Back).empty();
  return noText || !RowText(row, side).empty();
}

bool CardEditor::SelectRow(int row, int side) {
  if (!CanSelectRow(row, side)) return false;
  m_selRow = row;
  m_curCard = m_topCard + row;
  return true;
}

void CardEditor::ScrollTo(int topCard) {
  m_topCard = std::clamp(topCard, 1, ScrollMaximum());
  if (m_selRow >= 0 && RowText(m_selRow, Front).empty()) m_selRow = -1;
  if (m_selRow >= 0) m_curCard = m_topCard + m_selRow;
}

void CardEditor::MoveSelection(int rows) {
  if (Stack().CardCount == 0) return;
  const int start = m_selRow >= 0 ? m_curCard : m_topCard - 1;
  const int card = std::clamp<int>(start + rows, 1, Stack().CardCount);
  ScrollTo(std::clamp(m_topCard, card - (RowsPerPage - 1), card));
  m_selRow = card - m_topCard;
  m_curCard = card;
}

void CardEditor::GoTo(int card) {
  ScrollTo(std::max(card - (RowsPerPage - 1), 1));
  m_selRow = card - m_topCard;
  m_curCard = card;
}

bool CardEditor::CommitText(int side, TextView text) {
  if (m_selRow < 0) return false;
  if (TrimRight(text) == TrimRight(Stack().SideText(m_curCard, side))) return false;
  Stack().SetSideText(m_curCard, side, text);
  return true;
}

void CardEditor::CommitMedia(int side, MediaKind kind, TextView name) {
  if (m_selRow < 0) return;
  if (kind == MediaKind::Sound) {
    Stack().SetSideSound(m_curCard, side, name);
  } else {
    Stack().SetSidePicture(m_curCard, side, name);
  }
}

void CardEditor::ToggleDeleted() {
  if (m_selRow < 0) return;
  bool& mark = m_deleted.at(static_cast<std::size_t>(m_curCard));
  mark = !mark;
}

void CardEditor::CardsAppended() {
  if (m_topCard != 1) ScrollTo(1);
}

std::optional<CardSide> CardEditor::UnsavableText() const {
  return FirstUnsavableText(Stack(), [this](int card) { return IsMarked(card); });
}

Prompt CardEditor::SaveErrorPrompt(FileStatus status) const {
  return ::SaveErrorPrompt(status, m_stacks, [this](int card) { return IsMarked(card); });
}

FileStatus CardEditor::Save() {
  const std::unique_ptr<StackFile> file = std::move(m_stacks.StackFileNumber);
  const FileStatus written = WriteCards(*file);
  if (written != FileStatus::Ok) {
    file->Abandon();
    return written;
  }
  const FileStatus closed = file->Close(Stack().Origin);
  if (closed == FileStatus::Ok) Compact();
  return closed;
}

FileStatus CardEditor::WriteCards(StackFile& file) const {
  for (int card = 1; card <= Stack().CardCount; ++card) {
    if (IsMarked(card)) continue;
    for (const int side : {Front, Back}) {
      // A copy: what the user sees in memory stays, and the stack can be saved again.
      Text text(Stack().SideText(card, side));
      const FileStatus status =
          file.WriteSide(text, Stack().SideSound(card, side), Stack().SidePicture(card, side));
      if (status != FileStatus::Ok) return status;
    }
  }
  return FileStatus::Ok;
}

void CardEditor::Compact() {
  int kept = 0;
  for (int card = 1; card <= Stack().CardCount; ++card) {
    if (IsMarked(card)) continue;
    ++kept;
    if (kept != card) StoreFields(Stack(), kept, FieldsOf(Stack(), card));
  }
  for (int card = kept + 1; card <= Stack().CardCount; ++card) {
    StoreFields(Stack(), card, CardFields());
  }
  Stack().CardCount = kept;
  m_deleted.fill(false);
}
