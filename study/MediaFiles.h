#pragma once

#include "base/Files.h"
#include "base/Text.h"

/// The path under which a card's picture or sound is found, or an empty text. A name with a folder
/// is taken as it is; a bare name, as the user types it, is looked up in `folder` and then in the
/// current folder.
Text FindMedia(Files& files, const Text& name, TextView folder);
