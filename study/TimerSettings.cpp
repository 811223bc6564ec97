#include "study/TimerSettings.h"

#include <cmath>
#include <cstdint>

IntervalOption OptionOf(int interval) {
  switch (interval) {
    case 0:
      return IntervalOption::None;
    case 250:
      return IntervalOption::Quarter;
    case 500:
      return IntervalOption::Half;
    case 1000:
      return IntervalOption::One;
    default:
      return IntervalOption::Other;
  }
}

std::optional<Int16> IntervalOf(IntervalOption option) {
  switch (option) {
    case IntervalOption::None:
      return 0;
    case IntervalOption::Quarter:
      return 250;
    case IntervalOption::Half:
      return 500;
    case IntervalOption::One:
      return 1000;
    case IntervalOption::Other:
      break;
  }
  return std::nullopt;
}

Text SecondsText(int interval) { return NumberText(static_cast<float>(interval) / 1000); }

std::optional<Int16> IntervalOfSeconds(TextView seconds) {
  const double milliseconds = std::nearbyint(LeadingNumber(seconds) * 1000);  // halves to even
  if (milliseconds > INT16_MAX) return std::nullopt;
  return milliseconds < 1 ? 0 : static_cast<int>(milliseconds);
}
