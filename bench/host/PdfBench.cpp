// A run of labels as PDF, 24 to the page: what a text, the bars of a linear code, the modules of a
// two-dimensional one and a whole label cost, packed and with the file's end; the same drawn by Cairo's PDF
// surface; and how time and memory grow from 100 pages to 1,000. Prints the fastest of several runs.
#include <cairo-pdf.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "kaldrix/host/TShaper.hpp"
#include "kaldrix/host/TSurface.hpp"

namespace {

using namespace Zor;

constexpr int LabelsPerPage = 24, Columns = 4, Runs = 5;
constexpr double LabelWidth = 50, LabelHeight = 45, SheetWidth = 210, SheetHeight = 297;
constexpr double PointsPerMM = 72 / 25.4;

enum TWork { wkNewText, wkSameText, wkBars, wkModules, wkLabel, wkCount };
constexpr std::array<const char*, wkCount> WorkNames{"new text", "text seen before", "60 bars",
                                                     "150 module runs", "label"};

double ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// What a label shows; each differs from the others.
struct TLabel {
  std::string number, article;
  std::vector<TBar> bars, modules;
};

std::vector<TBar> RandomBars(std::mt19937& random) {
  std::vector<TBar> bars;
  for (double at = 0; bars.size() < 60; at += static_cast<double>(1 + random() % 4)) {
    const auto width = static_cast<double>(1 + random() % 4);
    bars.push_back({3 + at * 0.15, 12, width * 0.15, 12});
    at += width;
  }
  return bars;
}

std::vector<TBar> RandomModules(std::mt19937& random) {
  std::vector<TBar> runs;
  for (int row = 0; row < 25; ++row) {
    auto at = static_cast<double>(random() % 3);
    for (int i = 0; i < 6; ++i) {
      const auto width = static_cast<double>(1 + random() % 3);
      runs.push_back({30 + at * 0.5, 26 + row * 0.5, width * 0.5, 0.5});
      at += width + 1 + static_cast<double>(random() % 3);
    }
  }
  return runs;
}

/// Enough labels that none repeats within what a packer looks back on.
const std::vector<TLabel>& Labels() {
  static const std::vector<TLabel> labels = [] {
    std::mt19937 random(1);
    std::vector<TLabel> made(LabelsPerPage * 20);
    for (TLabel& label : made) label = {{}, {}, RandomBars(random), RandomModules(random)};
    return made;
  }();
  return labels;
}

const TFontSpec Font{.heightMM = 4};

/// One label on either kind of sheet.
class TSheet {
 public:
  virtual ~TSheet() = default;
  virtual void At(double x, double y) = 0;
  virtual void Back() = 0;
  virtual void Text(const std::string& text, double y) = 0;
  virtual void Bars(const std::vector<TBar>& bars) = 0;
  virtual void Page() = 0;
  virtual void Finish() = 0;
};

class TOurSheet final : public TSheet {
 public:
  TOurSheet(TFontEngine& fonts, std::size_t& bytes)
      : fSurface(TSurface::MakePdf(fonts, SheetWidth, SheetHeight, {},
                                   [&bytes](std::string_view piece) { bytes += piece.size(); })) {}
  void At(double x, double y) override {
    fSurface.Save();
    fSurface.Translate(x, y);
  }
  void Back() override { fSurface.Restore(); }
  void Text(const std::string& text, double y) override { fSurface.Text(text, {3, y}, Font, ColorBlack); }
  void Bars(const std::vector<TBar>& bars) override { fSurface.FillBars(bars, ColorBlack); }
  void Page() override { fSurface.NewPage(SheetWidth, SheetHeight); }
  void Finish() override { fSurface.FinishPdf(); }

 private:
  TSurface fSurface;
};

cairo_status_t Count(void* bytes, const unsigned char*, unsigned length) {
  *static_cast<std::size_t*>(bytes) += length;
  return CAIRO_STATUS_SUCCESS;
}

class TCairoSheet final : public TSheet {
 public:
  TCairoSheet(TFontEngine& fonts, std::size_t& bytes)
      : fShaper(fonts.Shaper()),
        fSurface(cairo_pdf_surface_create_for_stream(Count, &bytes, SheetWidth * PointsPerMM,
                                                     SheetHeight * PointsPerMM)),
        fCairo(cairo_create(fSurface)) {
    cairo_scale(fCairo, PointsPerMM, PointsPerMM);
  }
  ~TCairoSheet() override {
    cairo_destroy(fCairo);
    cairo_surface_destroy(fSurface);
  }
  void At(double x, double y) override {
    cairo_save(fCairo);
    cairo_translate(fCairo, x, y);
  }
  void Back() override { cairo_restore(fCairo); }
  void Text(const std::string& text, double y) override {
    const TShapedLine line = fShaper.Shape(text, fShaper.Face(Font));
    cairo_save(fCairo);
    cairo_translate(fCairo, 3, y);
    cairo_scale(fCairo, Font.heightMM / line.unitsPerEm, Font.heightMM / line.unitsPerEm);
    cairo_move_to(fCairo, 0, 0);
    pango_cairo_show_layout_line(fCairo, line.line);
    cairo_restore(fCairo);
  }
  void Bars(const std::vector<TBar>& bars) override {
    for (const TBar& bar : bars) cairo_rectangle(fCairo, bar.x, bar.y, bar.width, bar.height);
    cairo_fill(fCairo);
  }
  void Page() override { cairo_show_page(fCairo); }
  void Finish() override { cairo_surface_finish(fSurface); }

 private:
  TShaper& fShaper;
  cairo_surface_t* fSurface;
  cairo_t* fCairo;
};

void DrawLabel(TSheet& sheet, TWork work, std::size_t index) {
  const TLabel& label = Labels()[index % Labels().size()];
  if (work == wkNewText || work == wkLabel) sheet.Text("Serial " + std::to_string(1'000'000 + index), 5);
  if (work == wkSameText || work == wkLabel) sheet.Text("Best before", 10);
  if (work == wkLabel) sheet.Text("Article " + std::to_string(index % 40), 40);
  if (work == wkBars || work == wkLabel) sheet.Bars(label.bars);
  if (work == wkModules || work == wkLabel) sheet.Bars(label.modules);
}

void DrawRun(TSheet& sheet, TWork work, int pages, const std::function<void(int)>& afterPage) {
  for (int page = 0; page < pages; ++page) {
    if (page > 0) sheet.Page();
    for (int i = 0; i < LabelsPerPage; ++i) {
      sheet.At(i % Columns * LabelWidth, i / Columns * LabelHeight);
      DrawLabel(sheet, work, static_cast<std::size_t>(page * LabelsPerPage + i));
      sheet.Back();
    }
    if (afterPage) afterPage(page);
  }
  sheet.Finish();
}

/// Microseconds per label, the fastest run; `bytes` of that label in the file.
template <class TKind>
double Measure(TFontEngine& fonts, TWork work, int pages, double& bytes) {
  double best = 1e9;
  for (int run = 0; run < Runs; ++run) {
    std::size_t written = 0;
    const double start = ProcessorTime();
    {
      TKind sheet(fonts, written);
      DrawRun(sheet, work, pages, {});
    }
    best = std::min(best, (ProcessorTime() - start) * 1e6 / (pages * LabelsPerPage));
    bytes = static_cast<double>(written) / (pages * LabelsPerPage);
  }
  return best;
}

/// Prints how much of the heap is in use after some pages of a long run.
void PrintMemory(TFontEngine& fonts) {
  std::size_t written = 0;
  TOurSheet sheet(fonts, written);
  std::printf("heap in use after pages");
  DrawRun(sheet, wkLabel, 4000, [](int page) {
    const struct mallinfo2 info = mallinfo2();
    if (page == 99 || page == 999 || page == 3999) {
      std::printf("  %d: %.2f MB", page + 1, static_cast<double>(info.uordblks + info.hblkhd) / 1e6);
    }
  });
  std::printf("\n");
}

}  // namespace

int main() {
  TFontEngine fonts;
  Labels();
  std::printf("%-18s %10s %10s %8s %12s %12s\n", "us per", "ours", "cairo", "times", "bytes ours",
              "bytes cairo");
  for (int work = 0; work < wkCount; ++work) {
    double ourBytes = 0, cairoBytes = 0;
    const double ours = Measure<TOurSheet>(fonts, static_cast<TWork>(work), 100, ourBytes);
    const double cairo = Measure<TCairoSheet>(fonts, static_cast<TWork>(work), 100, cairoBytes);
    std::printf("%-18s %10.2f %10.2f %8.1f %12.0f %12.0f\n", WorkNames[static_cast<std::size_t>(work)], ours,
                cairo, cairo / ours, ourBytes, cairoBytes);
  }
  double bytes = 0;
  const double few = Measure<TOurSheet>(fonts, wkLabel, 100, bytes);
  const double many = Measure<TOurSheet>(fonts, wkLabel, 1000, bytes);
  std::printf("label, 100 pages %.2f us, 1000 pages %.2f us, ratio %.2f\n", few, many, many / few);
  PrintMemory(fonts);
}
