#include "study/DesktopSound.h"

void DesktopSound::Play(const Text&) {}
void DesktopSound::Stop() {}
