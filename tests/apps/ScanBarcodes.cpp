// Makes barcodes with the program, of texts sound and unsound, and holds one rule: what the program takes,
// independent readers find again, byte for byte; what it does not take, it refuses with a reason.
//
//   scan_barcodes [TEXTS [DRAWN [TYPE]]]
//
// TEXTS of each symbology (300 if not told) that it has to take and as many of any characters as PNG, and
// DRAWN of the sound ones (30) as SVG, painted by Chromium, and as PDF, painted by pdftoppm; of all types, or
// of those that begin with TYPE, or of that row. Prints a table, what broke the rule, and ends with 1 when
// there is anything.
#include <algorithm>
#include <iostream>

#include "apps/Program.hpp"
#include "apps/ScanTexts.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

class TScanner {
 public:
  TScanner(int aTexts, int aDrawn) : fTexts(aTexts), fDrawn(std::min(aDrawn, aTexts)) {}

  /// The table's row; true when the rule held.
  bool Scan(const TScan& aScan) {
    const TCounts png = TrySound(aScan, fTexts, "png"), svg = TrySound(aScan, fDrawn, "svg"),
                  pdf = TrySound(aScan, fDrawn, "pdf"), any = TryAny(aScan);
    std::cout << "| " << aScan.name << " | " << png.read << " of " << fTexts << " | " << svg.read << " of "
              << fDrawn << " | " << pdf.read << " of " << fDrawn << " | " << any.read << " of " << any.taken
              << " | " << any.refused << " of " << fTexts - any.taken << " | " << ReaderNames[aScan.reader]
              << " |" << std::endl;
    return png.read == fTexts && svg.read == fDrawn && pdf.read == fDrawn && any.read == any.taken &&
           any.refused == fTexts - any.taken;
  }

 private:
  struct TCounts {
    int taken = 0, read = 0, refused = 0;
  };
  /// What the program made of a text.
  struct TMade {
    std::string text, file;  ///< an empty name: nothing
    bool refused = false;    ///< with status 1 and a reason, and without a file
    std::string told;
  };

  TCounts TrySound(const TScan& aScan, int aCount, const std::string& aForm) {
    TReaderRun run;
    std::vector<TMade> made;
    for (int i = 0; i < aCount; ++i) made.push_back(Make(run, aScan, fMaker.Sound(aScan, i, aCount), aForm));
    return Judge(run, aScan, made, aForm);
  }
  TCounts TryAny(const TScan& aScan) {
    TReaderRun run;
    std::vector<TMade> made;
    for (int i = 0; i < fTexts; ++i) made.push_back(Make(run, aScan, fMaker.Any(aScan), "png"));
    TCounts counts = Judge(run, aScan, made, "png");
    for (const TMade& one : made) counts.refused += one.refused;
    return counts;
  }

  static TMade Make(TReaderRun& aRun, const TScan& aScan, const std::string& aText,
                    const std::string& aForm) {
    const std::string source = aRun.NewName(".txt"), file = aRun.NewName("." + aForm);
    WriteFileAtomically(source, aText + "\n");
    const std::string options = std::string(aScan.options) + (IsLinear(aScan) ? " --no-text" : "");
    const TOutcome done = Shell(std::string(KALDRIX_PROGRAM " barcode ") + aScan.type + " - " + options +
                                " -o " + file + " <" + source);
    if (done.status == 0 && FileExists(file)) return {aText, file, false, done.text};
    const std::string front = std::string("kaldrix: ") + aScan.type + ": ";
    const bool refused = done.status == 1 && done.text.starts_with(front) &&
                         done.text.size() > front.size() + 5 && !FileExists(file);
    return {aText, "", refused, done.text};
  }
  static bool IsLinear(const TScan& aScan) {
    const std::string_view type = aScan.type;
    return type != "qr" && type != "datamatrix" && type != "pdf417";
  }

  /// Counts what was taken and what of that was read, and tells what was neither read nor refused.
  static TCounts Judge(TReaderRun& aRun, const TScan& aScan, const std::vector<TMade>& aMade,
                       const std::string& aForm) {
    std::vector<std::string> files;
    for (const TMade& one : aMade) files.push_back(one.file);
    const std::vector<std::string> images = aForm == "svg" ? Painted(aRun, files, LowDpi) : files;
    TCounts counts;
    for (std::size_t i = 0; i < aMade.size(); ++i) {
      const TMade& one = aMade[i];
      if (one.file.empty()) {
        if (!one.refused) Report(aScan, aForm, one.text, "is not refused as it should be: " + one.told);
        continue;
      }
      ++counts.taken;
      std::string found;
      if (IsRead(aRun, aScan, one, aForm, images[i], found)) {
        ++counts.read;
      } else {
        Report(aScan, aForm, one.text, "is read as '" + found + "'");
      }
    }
    return counts;
  }
  static void Report(const TScan& aScan, const std::string& aForm, const std::string& aText,
                     const std::string& aWhat) {
    std::cerr << aScan.name << " as " << aForm << ": '" << aText << "' " << aWhat << '\n';
  }

  static constexpr int LowDpi = 300, HighDpi = 600;

  /// Readers fail on some sizes of bars that lie off the pixels: a drawing gets a second look at twice as
  /// many. ZXingReader has another look at what the first reader does not know, such as FNC4 or controls.
  static bool IsRead(TReaderRun& aRun, const TScan& aScan, const TMade& aMade, const std::string& aForm,
                     const std::string& aImage, std::string& aFound) {
    const auto finds = [&](const std::string& image) {
      for (const TReader reader : {aScan.reader, rdZXing}) {
        aFound = Find(aScan, reader, image);
        if (Agrees(aScan, aMade.text, aFound)) return true;
      }
      return false;
    };
    if (aForm == "pdf") {
      return finds(PaintedPdf(aRun, aMade.file, LowDpi)) || finds(PaintedPdf(aRun, aMade.file, HighDpi));
    }
    return finds(aImage) || (aForm == "svg" && finds(Painted(aRun, {aMade.file}, HighDpi).front()));
  }

  static std::string PaintedPdf(TReaderRun& aRun, const std::string& aPdf, int aDpi) {
    if (aPdf.empty()) return {};
    const std::string stem = aRun.NewName("");
    const TOutcome done =
        Shell("pdftoppm -r " + std::to_string(aDpi) + " -png -singlefile " + aPdf + " " + stem);
    return done.status == 0 ? stem + ".png" : Failed(done.text);
  }

  static double Millimetres(const std::string& aSvg, const std::string& aKey) {
    const std::size_t at = aSvg.find(aKey + "=\"");
    return at == std::string::npos ? 0 : std::strtod(aSvg.c_str() + at + aKey.size() + 2, nullptr);
  }
  /// Images of drawings: a browser puts each on a page of a PDF.
  static std::vector<std::string> Painted(TReaderRun& aRun, const std::vector<std::string>& aDrawings,
                                          int aDpi) {
    double width = 0, height = 0;
    std::string pages;
    for (const std::string& drawing : aDrawings) {
      if (drawing.empty()) continue;
      const std::string head = ReadFile(drawing).substr(0, 2000);
      width = std::max(width, Millimetres(head, "width"));
      height = std::max(height, Millimetres(head, "height"));
      pages += "<div><img src='" + drawing + "'></div>";
    }
    const std::string page = aRun.NewName(".html"), stem = aRun.NewName(""), pdf = stem + ".pdf";
    constexpr int around = 10;
    WriteFileAtomically(page, "<!DOCTYPE html><style>@page{size:" + std::to_string(width + around) + "mm " +
                                  std::to_string(height + around) +
                                  "mm;margin:4mm}body{margin:0}img{display:block}" +
                                  "div{break-after:page}div:last-child{break-after:avoid}</style>" + pages);
    Shell(
        "chromium --headless --no-sandbox --disable-gpu --no-pdf-header-footer "
        "--allow-file-access-from-files "
        "--print-to-pdf=" +
        pdf + " file://" + page);
    const TOutcome done = Shell("pdftoppm -r " + std::to_string(aDpi) + " -png " + pdf + " " + stem);
    if (done.status != 0) Failed(done.text);
    std::vector<std::string> images;
    std::istringstream names(Shell("ls " + stem + "-*.png").text);
    for (std::string name; std::getline(names, name);) images.push_back(name);
    // What was not drawn has no page.
    for (std::size_t i = 0; i < aDrawings.size(); ++i) {
      if (aDrawings[i].empty()) images.insert(images.begin() + std::min(i, images.size()), "");
    }
    images.resize(aDrawings.size());
    return images;
  }
  static std::string Failed(const std::string& aText) {
    std::cerr << aText;
    return {};
  }

  static std::string Find(const TScan& aScan, TReader aReader, const std::string& aImage) {
    if (aImage.empty()) return "(no image)";
    switch (aReader) {
      case rdZbar:
        // It takes short codes of some symbologies only when told so.
        return Shell("(zbarimg -q --raw --oneshot -Sbinary -Si25.min-length=2 -Scodabar.min-length=1 " +
                     aImage + " 2>/dev/null)")
            .text;
      case rdDmtx:
        return Shell("(dmtxread -N1 " + aImage + " 2>/dev/null)").text;
      case rdZXing:
        if (std::string_view(aScan.format).empty()) return "(not read)";
        return Shell(std::string("ZXingReader -ispure -bytes -format ") + aScan.format + " " + aImage).text;
    }
    return {};
  }

  int fTexts, fDrawn;
  TScanTexts fMaker;
};

}  // namespace
}  // namespace Zor

int main(int argc, char** argv) {
  const int texts = argc > 1 ? std::atoi(argv[1]) : 300, drawn = argc > 2 ? std::atoi(argv[2]) : 30;
  std::cout
      << "| symbology | read as PNG | as SVG | as PDF | of any text: read | refused with a reason | by |\n"
         "| --- | ---: | ---: | ---: | ---: | ---: | --- |\n";
  Zor::TScanner scanner(texts, drawn);
  bool sound = true;
  const std::string_view type = argc > 3 ? argv[3] : "";
  for (const Zor::TScan& scan : Zor::Scans) {
    const bool meant = std::string_view(scan.type).starts_with(type) || scan.name == type;
    if (meant) sound = scanner.Scan(scan) && sound;
  }
  return sound ? 0 : 1;
}
