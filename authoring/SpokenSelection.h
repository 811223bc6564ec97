#pragma once

#include "authoring/CardEditor.h"

/// What the card editor says of the card that has just become the selected one: "Card 3 of 20.
/// Front: dog. Back: perro. Marked for deletion." The texts stand on one line, long ones are cut.
/// "No card selected." without one.
Text SpokenSelection(const CardEditor& editor, const CardStack& stack);
