#pragma once

#include "base/FileStatus.h"
#include "base/Text.h"
#include "cards/CardStack.h"

#include <functional>
#include <vector>

inline constexpr TextView DefaultMarginText = u"5";

struct PrintFont {
  Text name;
  float size = 0;  ///< points
  bool bold = false;

  friend bool operator==(const PrintFont&, const PrintFont&) = default;
};

/// What the layout asks of a printer. All lengths are twips, 1440 to the inch, on the printable
/// area of a page.
class PrintMeasure {
 public:
  virtual ~PrintMeasure() = default;
  virtual double PageWidth() = 0;
  virtual double PageHeight() = 0;
  /// @param line  has no line break; blanks count, at its ends too
  virtual double TextWidth(const PrintFont& font, TextView line) = 0;
  /// The font's line spacing; so far apart are lines that are printed in it.
  virtual double TextHeight(const PrintFont& font) = 0;
};

/// The choices of the print dialog.
struct PrintSettings {
  PrintFont front;
  PrintFont back;
  double margin = 0;  ///< from the left, in lines of the front font
};

/// A piece of a printed line.
struct PrintedText {
  int page = 0;  ///< from 0
  double x = 0;  ///< of the left edge, in twips; below 0 for a title wider than the page
  double y = 0;  ///< of the upper edge, in twips
  PrintFont font;
  Text text;  ///< never empty

  friend bool operator==(const PrintedText&, const PrintedText&) = default;
};

/// Called before each card with the number of cards that are done; false cancels.
using PrintProgress = std::function<bool(int cards)>;

/// Lays out a stack: its name, and a line for each card with the front at the margin and the back
/// from the middle of the page. A back that does not fit stands below its front, indented by a
/// line's height, and takes two lines when it is wider than the page.
/// @param pages  receives the texts in the order of printing; meaningless after a failure
/// @return `Ok`; `Declined` when cancelled; `Overflow` when a position or size does not fit 16 bits
FileStatus PrintStack(const CardStack& stack, const PrintSettings& settings, PrintMeasure& printer,
                      const PrintProgress& progress, std::vector<PrintedText>& pages);

/// Replaces every CR LF by one blank.
Text StripCrLf(TextView text);

/// The point size that a size field stands for; the default size when that is above 32 or not
/// above 0.
float SizeOf(TextView typed);

/// What a margin field keeps: the default margin instead of one above 40.
Text RepairedMargin(TextView typed);

/// Texts of the dialog in its print role. The name fills its field, as it is stored.
Text PrintCaption(const CardStack& stack);
Text PrintAction(const CardStack& stack);

/// Texts of the dialog in its display-font role.
Text DisplayFontCaption(TextView topicName);
inline constexpr TextView DisplayFontAction = u"Change Display Font";

/// What the preview of a side says: a sentence in its font, or that there is none to be had.
Text PreviewText(int side, bool onScreen);
