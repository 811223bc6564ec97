#pragma once

#include "base/FileStatus.h"
#include "base/Files.h"
#include "printing/PrintLayout.h"

class QPagedPaintDevice;
class QPrinter;

/// Measures for a Qt printer or PDF file.
class DeviceMeasure : public PrintMeasure {
 public:
  explicit DeviceMeasure(QPagedPaintDevice& device) : m_device(device) {}

  double PageWidth() override;
  double PageHeight() override;
  double TextWidth(const PrintFont& font, TextView line) override;
  double TextHeight(const PrintFont& font) override;

 private:
  QPagedPaintDevice& m_device;
};

/// Prints a stack. Nothing goes to the printer before the whole stack is laid out, because a job
/// that has begun cannot be taken back.
/// @return `Ok`; `Declined` when cancelled; else the status of what failed
FileStatus PrintToPrinter(QPrinter& printer, const CardStack& stack, const PrintSettings& settings,
                          const PrintProgress& progress);

/// Prints a stack into a PDF file. Unless all goes well, an older file of that name stands.
FileStatus PrintToPdf(Files& files, const Text& path, const CardStack& stack,
                      const PrintSettings& settings, const PrintProgress& progress);
