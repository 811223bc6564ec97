#pragma once

#include "base/DiskFiles.h"
#include "program/Platform.h"
#include "settings/ProfileFile.h"
#include "windows/help/DesktopHelp.h"
#include "windows/main/DesktopPrompts.h"
#include "windows/study/DesktopSound.h"

/// The real desktop: message boxes, the file system, the user's settings file.
class DesktopServices {
 public:
  DesktopServices();
  DesktopServices(const DesktopServices&) = delete;
  DesktopServices& operator=(const DesktopServices&) = delete;

 private:
  DesktopPrompts m_prompts;
  DiskFiles m_files;
  ProfileFile m_profile;
  RememberedState m_state;
  DesktopHelp m_help;
  DesktopSound m_sound;

 public:
  Platform platform;
};
