#pragma once

#include <optional>

/// A pressed key that types a character, as the window system tells it.
struct PressedKey {
  /// What the keyboard layout gives with the modifiers that are held, a letter as its capital. A
  /// dead key gives its combining character (U+0300 for the grave accent). 0: nothing is known.
  char32_t symbol = 0;
  /// The place on the keyboard: the kernel's code plus 8, as X11 and Wayland report it; 0: unknown.
  unsigned scanCode = 0;
  bool shift = false;
};

/// The virtual-key code of a key that types a character, whatever keyboard layout is in use:
/// - a letter A to Z by what is on the key, 65..90;
/// - the keys of the digit row by their place, 48..57, since some layouts print other symbols
///   there;
/// - punctuation by the key's own symbol where it is one of , - . / ; = ` [ \ ] ' (186..192 and
///   219..222), so that a keystroke written as text is found on the keyboard;
/// - all other keys by the code that their place has on the US layout: letters of other scripts
///   65..90, further signs 186..192 and 219..222, the key beside the left Shift 226.
///
/// On the usual layouts each key has a code of its own, with and without Shift: a key whose place
/// belongs to a symbol that stands elsewhere takes the code of that other place (223 where that is
/// taken as well).
/// @return 0 for a key without a code
int CodeOfTypingKey(const PressedKey& key);

/// The digit 0 to 9 of a key in the digit row, by its place, whatever the layout prints there; by
/// its symbol when the place is unknown. Nothing for any other key.
std::optional<int> DigitOfTypingKey(const PressedKey& key);
