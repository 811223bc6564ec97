#pragma once

#include "base/Prompts.h"
#include "base/Text.h"

/// The help file's name; its pages are found by context number.
inline constexpr TextView HelpFileName = u"quib.HLP";

/// The page that a window's Help command asks for.
enum class HelpContext : int {
  UsingHelp = 0,
  Index = 256,     // frmMain, mnuHlp_Index
  AddKey = 258,    // frmAddKey
  MainMenu = 259,  // frmMain, mnuMMHelp
  Find = 260,
  Description = 261,
  Topics = 262,  // frmConfig
  Stepper = 263,
  Create = 264,
  Load = 265,
  Edit = 266,
  Timer = 269,
  Overview = 270,  // frmAboutBox, cmdOverview
  Print = 271,
  MoreKeys = 273,
  Keys = 274,
};

/// Opens the help on a page.
class HelpService {
 public:
  virtual ~HelpService() = default;
  virtual void Show(HelpContext context) = 0;
};

/// The notice for a help file that is not there.
/// @param helpFile  the full path that was looked for
Prompt MissingHelpPrompt(TextView helpFile);
