#pragma once

#include "base/Text.h"

#include <optional>
#include <vector>

/// The name under which a section is found: as its header reads, which ends at the first "]". A
/// name that goes on behind one, in a file made by hand, shares the section of the shorter name.
TextView SectionName(TextView name);

/// The content of a settings file as a list of lines, read and edited one line at a time: comments,
/// order, spelling and unknown lines survive every change. See docs/formats.md, "Settings file".
///
/// Sections and keys are found without regard to letter case, blanks around the requested name
/// ignored; only the first section of a name counts, and in it the first key of a name.
class ProfileText {
 public:
  /// CR LF ends a line, and so does a lone CR or LF, which an editor may have left. In the value of
  /// KEYS these are characters that a key types; but where the content holds no CR LF, LF ends that
  /// line too.
  explicit ProfileText(TextView content);

  /// All lines, each ended by CR LF.
  Text Content() const;

  /// The value: without space characters in front, blanks behind, and one pair of enclosing quotes.
  /// Nothing when section or key is missing; a present key with nothing behind "=" is empty.
  std::optional<Text> Value(TextView section, TextView key) const;

  /// Replaces the value on its line, as it is; only one in quotes gets a second pair, which reading
  /// takes away. Or adds the key behind the last key of its section; or
  /// adds section and key at the end.
  void SetValue(TextView section, TextView key, TextView value);

  /// Removes the key's line; a section that becomes empty keeps its header.
  void RemoveKey(TextView section, TextView key);

  /// Removes the header and the key lines of the first section of that name. Comments and other
  /// lines in it stay.
  void RemoveSection(TextView section);

 private:
  struct Range {
    std::size_t header;
    std::size_t end;  // the line behind the section's last
  };

  std::optional<Range> FindSection(TextView section) const;
  std::optional<std::size_t> FindKey(const Range& section, TextView key) const;

  std::vector<Text> m_lines;
};
