#pragma once

#include "base/Int16.h"
#include "base/Text.h"

#include <optional>

/// The study settings, for the whole program and kept in memory only. The three switches are the
/// opposite of their check boxes.
struct TimerSettings {
  Int16 TimerInterval = 0;  ///< milliseconds that a question stays visible; 0 without a timer
  bool HideWord = false;
  bool NoSound = false;
  bool NoPicture = false;
  bool TimerSettingsConfirmed = false;  ///< the dialog was last closed with OK
};

/// The interval options of the study settings dialog.
enum class IntervalOption { None, Quarter, Half, One, Other };

IntervalOption OptionOf(int interval);

/// The interval of an option, in milliseconds; nothing for Other, which is typed.
std::optional<Int16> IntervalOf(IntervalOption option);

/// An interval as the text box beside Other shows it: in seconds, "0.75".
Text SecondsText(int interval);

/// The interval for a typed number of seconds: rounded to whole milliseconds, halves to even; 0
/// when the text does not start with a number or the result is below 1. Nothing when it is longer
/// than a 16-bit number of milliseconds.
std::optional<Int16> IntervalOfSeconds(TextView seconds);
