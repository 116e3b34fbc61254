#pragma once

namespace CLI {
class App;
}

namespace Zor::Program {

/// A command of the program: it states its options when it is made and runs when it was chosen.
class Command {
 public:
  virtual ~Command() = default;
  /// The exit status.
  virtual int Run() const = 0;
  bool IsChosen() const;

 protected:
  Command(CLI::App& aProgram, const char* aName, const char* aDescription);
  CLI::App& Options() const { return *fOptions; }

 private:
  CLI::App* fOptions;  ///< owned by the program
};

}  // namespace Zor::Program
