#pragma once

#include <string>

/// From now on this process can read everything and write nothing but what lies below `folder`,
/// whatever it tries: a monkey that finds the Delete command must not find the user's files.
/// @return false when the system knows no such fence, and then nothing has changed
bool AllowWritingOnlyBelow(const std::string& folder);
