// Documents on several threads: each has its own, and only what holds for the process is agreed on before.
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "kaldrix/host/Host.hpp"

int main() {
  Zor::UseDiagramLoader();  // for all documents, before there are threads
  Zor::SetInputLimit(std::size_t{64} << 20);

  std::vector<std::string> drawings(4);
  std::vector<std::thread> threads;
  for (std::string& drawing : drawings) {
    threads.emplace_back([&drawing] {
      Zor::TKDXLabel label;  // with fonts of its own; a document stays on the thread that uses it
      label.LoadFromDiagramText("flowchart LR\n  A[Order] --> B[Pack] --> C[Ship]", Zor::dgMermaid);
      drawing = Zor::ExportSvg(label, {});
    });
  }
  for (std::thread& thread : threads) thread.join();

  int equal = 0;
  for (const std::string& drawing : drawings) equal += drawing == drawings.front() ? 1 : 0;
  std::cout << equal << " equal drawings"
            << (drawings.front().find("Pack") != std::string::npos ? "" : ", empty") << '\n';
}
