#pragma once

#include "base/Prompts.h"
#include "program/HelpContexts.h"

#include <memory>
#include <vector>

class HelpBook;
class RememberedState;
class frmHelp;

/// The help viewer and the file that it shows. Neither is loaded before help is asked for.
class DesktopHelp : public HelpService {
 public:
  /// @param state   where the viewer keeps its size; outlives this
  /// @param places  the full paths where the help file may lie, the first being the one that is
  ///                named when it is at none of them
  DesktopHelp(Prompts& prompts, RememberedState& state, std::vector<Text> places);
  ~DesktopHelp() override;
  DesktopHelp(const DesktopHelp&) = delete;
  DesktopHelp& operator=(const DesktopHelp&) = delete;

  void Show(HelpContext context) override;

  /// The viewer; null until help has been shown.
  frmHelp* Viewer() const { return m_viewer.get(); }

 private:
  bool Open();

  Prompts& m_prompts;
  RememberedState& m_state;
  std::vector<Text> m_places;
  std::unique_ptr<HelpBook> m_book;
  std::unique_ptr<frmHelp> m_viewer;
};

/// The places of the installed program and of one that runs where it was built.
/// @param programFolder  the folder of the program
std::vector<Text> HelpFilePlaces(const Text& programFolder);
