// Prints a label for each record of a CSV file and numbers them: sheets of PDF, and what stands where.
#include <iostream>

#include "kaldrix/host/Host.hpp"

int main() {
  Zor::WriteFileAtomically("guests.csv", "name;table\nAda;1\nGrace;2\nEmmy;2\n");
  Zor::TKDXLabel badge;
  badge.fMeasure->SetNuHor(1);  // rows
  badge.fMeasure->SetNuVer(2);  // columns
  badge.fData->SetCsvData("guests.csv", true, Zor::scvSemicolon, Zor::scqDoubleQuotes);
  badge.fData->Select(Zor::dtyCsv);
  auto* number = new Zor::TKDXCounter(&badge);  // the document owns it
  number->fName = "Number";
  badge.NewText(5000, 5000)->SetData(Zor::ftField, "name", "");
  badge.NewQRCode(5000, 15000, "0")->SetData(Zor::ftCounter, "Number", "");

  Zor::TLabelRun run(badge);
  run.CheckBindings();                      // every field and counter is there
  run.Select({1, badge.fData->Records()});  // the counter goes on to 100, and its labels would too
  Zor::TRunJob job;
  job.output = "badges.pdf";
  job.onPage = [](int page, int pages) { std::cout << "page " << page << " of " << pages << '\n'; };
  Zor::TRunWriter writer(badge, run, job);
  writer.Rehearse([](const Zor::TRunLabel& label) {
    std::cout << "label " << label.label << ": page " << label.page << ", column " << label.column
              << ", record " << label.record << ", number " << label.counters.front().second << '\n';
  });
  writer.Begin();
  std::cout << writer.Write() << " labels left out\n";
}
