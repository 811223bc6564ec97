#pragma once

/// The mouse pointer of the whole program has one of two states; setting one twice is the same as
/// once.
enum class PointerShape { Normal, Busy };

void SetPointer(PointerShape shape);

/// Shows the busy pointer and restores the normal one on every way out.
class BusyPointer {
 public:
  BusyPointer() { SetPointer(PointerShape::Busy); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
  ~BusyPointer() { SetPointer(PointerShape::Normal); }
};
