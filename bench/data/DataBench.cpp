// A run of labels over CSV files of four sizes, three fields and a counter each: planning it, going through
// all pages, and the memory that the open file takes. Prints the cost of a record at each size and how it
// grows from a thousand records to a million.
//
//     data_bench [MOST]      leaves out the sizes above MOST
#include <malloc.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <limits>
#include <string>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "support/TBareLabel.hpp"
#include "support/TTestFile.hpp"

namespace {

using namespace Zor;

constexpr std::array Sizes{1'000, 10'000, 100'000, 1'000'000};
constexpr int RecordsPerWork = 1'000'000;  // a small file is repeated until so many records are done

enum TWork { wkPlan, wkPlanByField, wkWalk, wkWalkByField, wkFill, wkCount };
constexpr std::array<const char*, wkCount> WorkNames{"plan", "plan by field", "walk pages", "walk by field",
                                                     "fill pages"};

/// Seconds of processor time, which other work on a shared machine disturbs least.
double ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

std::size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

std::string Records(int aCount) {
  std::string text = "Name;Price;Copies\n";
  for (int i = 0; i < aCount; ++i) {
    text += "\"Part, no. " + std::to_string(i) + "\";" + std::to_string(i % 1000) + ".5;1\n";
  }
  return text;
}

class TRun {
 public:
  explicit TRun(const std::string& aFileName) {
    fLabel.fData->SetCsvData(aFileName, true, scvSemicolon, scqDoubleQuotes);
    fLabel.fData->Select(dtyCsv);
    auto* counter = new TKDXCounter(&fLabel);
    counter->fName = "Number";
    counter->SetNumTo(std::numeric_limits<int>::max());
    for (const char* name : {"{Name", "{Price", "{Copies"}) fLabel.NewText(0, 0)->SetData(ftNone, name, "");
  }

  void Do(TWork aWork, int aRecords) {
    fLabel.fData->fFieldRepeat = aWork == wkPlanByField || aWork == wkWalkByField ? "Copies" : "";
    fLabel.CheckPrintData();
    if (fLabel.fPrintInfo->fLabelsToPrint != aRecords) std::abort();
    if (aWork == wkPlan || aWork == wkPlanByField) return;
    if (aWork == wkFill) MakeCopies();
    for (int page = 1; page <= fLabel.fPrintInfo->fPagesToPrint; ++page) {
      fLabel.GoToPage(page, true, true);
      for (const TZOPageLabel& label : fLabel.GetPageLabels()) fSeen += label.record;
    }
  }

 private:
  void MakeCopies() {
    for (int row = 1; row <= fLabel.fMeasure->fNuHor; ++row) {
      for (int column = 1; column <= fLabel.fMeasure->fNuVer; ++column) {
        for (const TKDXBaseItem* item : fLabel.fItems) fLabel.MakePreviewCopy(*item, row, column);
      }
    }
  }

  TBareLabel fLabel;
  long long fSeen = 0;
};

/// Nanoseconds per record.
double Cost(TRun& aRun, TWork aWork, int aRecords) {
  const int runs = std::max(RecordsPerWork / aRecords, 1);
  const double start = ProcessorTime();
  for (int i = 0; i < runs; ++i) aRun.Do(aWork, aRecords);
  return (ProcessorTime() - start) * 1e9 / runs / aRecords;
}

}  // namespace

int main(int aCount, char** aArguments) {
  int most = std::numeric_limits<int>::max();
  if (aCount > 1) std::from_chars(aArguments[1], aArguments[1] + std::strlen(aArguments[1]), most);
  std::printf("%-10s", "records");
  for (const char* name : WorkNames) std::printf("%16s", name);
  std::printf("%16s\n", "bytes beside");
  std::array<double, wkCount> first{}, last{};
  for (const int size : Sizes) {
    if (size > most) break;
    const std::string text = Records(size);
    const TTestFile file(text);
    TRun run(file.Name());
    std::printf("%-10d", size);
    const std::size_t before = HeapInUse();
    for (int work = 0; work < wkCount; ++work) {
      const auto index = static_cast<std::size_t>(work);
      last[index] = Cost(run, static_cast<TWork>(work), size);
      if (size == Sizes[0]) first[index] = last[index];
      std::printf("%13.0f ns", last[index]);
    }
    // What an open file takes beyond its own bytes.
    const auto beside = static_cast<double>(HeapInUse() - before) - static_cast<double>(text.size());
    std::printf("%16.1f\n", beside / size);
  }
  std::printf("%-10s", "growth");
  for (std::size_t work = 0; work < wkCount; ++work) std::printf("%16.2f", last[work] / first[work]);
  std::printf("\n");
}
