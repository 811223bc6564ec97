#pragma once

#include "base/Text.h"

#include <QString>

/// The installed samples, or those of the source tree that the program was built in; empty when
/// there are none.
QString SamplesFolder();

/// Where the stack file dialog opens first: the program's own folder while it can be written in,
/// else the user's documents. An installed program shares its folder with others, which is no place
/// for stacks even where it can be written to: then it is the documents, too. A program that runs
/// from the folder it was built in opens in the samples: among the compiler's files there are no
/// stacks.
Text FirstFolder();
