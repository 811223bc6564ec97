#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace {

bool IsFirstOfPair(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsSecondOfPair(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

Text FromAscii(std::string_view ascii) { return Text(ascii.begin(), ascii.end()); }

/// The part of `text` that LeadingNumber reads, in the form that std::from_chars takes.
std::string NumberPrefix(TextView text) {
  std::string prefix;
  bool pointSeen = false;
  bool digitSeen = false;
  std::size_t at = 0;
  Text packed;
  for (const char16_t unit : text) {
    if (unit != u' ' && unit != u'\t' && unit != u'\n') packed += unit;
  }
  if (at < packed.size() && (packed[at] == u'+' || packed[at] == u'-')) {
    if (packed[at] == u'-') prefix += '-';
    ++at;
  }
  for (; at < packed.size(); ++at) {
    if (IsDigit(packed[at])) {
      digitSeen = true;
    } else if (packed[at] == u'.' && !pointSeen) {
      pointSeen = true;
    } else {
      break;
    }
    prefix += static_cast<char>(packed[at]);
  }
  if (!digitSeen) return {};
  const bool exponent = at < packed.size() && (packed[at] == u'e' || packed[at] == u'E' ||
                                               packed[at] == u'd' || packed[at] == u'D');
  if (!exponent) return prefix;
  std::string power = "e";
  ++at;
  if (at < packed.size() && (packed[at] == u'+' || packed[at] == u'-')) {
    power += static_cast<char>(packed[at++]);
  }
  if (at == packed.size() || !IsDigit(packed[at])) return prefix;
  for (; at < packed.size() && IsDigit(packed[at]); ++at) power += static_cast<char>(packed[at]);
  return prefix + power;
}

/// Tells the two ways apart in which a number other than 0 misses the range of a double. `prefix`
/// is what NumberPrefix made.
bool IsTooSmall(std::string_view prefix) {
  const std::size_t mark = std::min(prefix.find('e'), prefix.size());
  const std::string_view digits = prefix.substr(0, mark);
  std::string_view power = prefix.substr(std::min(mark + 1, prefix.size()));
  const bool negativePower = power.starts_with('-');
  if (power.starts_with('+')) power.remove_prefix(1);
  std::int64_t exponent = 0;
  const auto [end, error] = std::from_chars(power.data(), power.data() + power.size(), exponent);
  if (error == std::errc::result_out_of_range) return negativePower;
  const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
  const auto first = static_cast<std::int64_t>(digits.find_first_of("123456789"));
  return exponent < first - point;
}

}  // namespace

TextView TrimRight(TextView text) {
  while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
  return text;
}

TextView TrimBlanks(TextView text) {
  while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
  return TrimRight(text);
}

TextView CutText(TextView text, std::size_t length) {
  if (text.size() <= length) return text;
  if (length > 0 && IsFirstOfPair(text[length - 1]) && IsSecondOfPair(text[length])) --length;
  return text.substr(0, length);
}

Text FixedWidth(TextView text, std::size_t width) {
  Text result(CutText(text, width));
  result.resize(width, u' ');
  return result;
}

Text ReplaceAll(TextView text, TextView from, TextView to) {
  Text result;
  std::size_t start = 0;
  for (std::size_t at = text.find(from); at != TextView::npos; at = text.find(from, start)) {
    result.append(text, start, at - start).append(to);
    start = at + from.size();
  }
  return result.append(text, start);
}

TextView FirstLine(TextView text) { return text.substr(0, text.find_first_of(LineBreak)); }

Text NumberText(int number) { return FromAscii(std::to_string(number)); }

Text SignedNumberText(int number) {
  return number < 0 ? NumberText(number) : u" " + NumberText(number);
}

Text NumberText(float number) {
  std::array<char, 32> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                          std::chars_format::general, 7);
  Text text = error == std::errc() ? FromAscii({digits.data(), end}) : Text(u"0");
  for (char16_t& unit : text) {
    if (unit == u'e') unit = u'E';
  }
  return text;
}

double LeadingNumber(TextView text) {
  const std::string prefix = NumberPrefix(text);
  if (prefix.empty()) return 0;
  double number = 0;
  const auto [end, error] = std::from_chars(prefix.data(), prefix.data() + prefix.size(), number);
  if (error != std::errc::result_out_of_range) return number;
  if (IsTooSmall(prefix)) return 0;
  return prefix.front() == '-' ? -HUGE_VAL : HUGE_VAL;
}
