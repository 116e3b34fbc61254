// What a program that embeds the library has to catch.
#include <functional>
#include <iostream>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>

#include "kaldrix/host/Host.hpp"

namespace {

/// Runs a step of the user's. True when it is done; whatever is thrown, the document can be used on.
bool Try(const std::function<void()>& aStep) {
  try {
    aStep();
    return true;
  } catch (const Zor::EFileNotFoundException& error) {
    std::cout << "no such file: " << error.what() << '\n';
  } catch (const Zor::EStreamError& error) {
    std::cout << "reading or writing: " << error.what() << '\n';
  } catch (const Zor::EArgumentException& error) {
    std::cout << "wrong value: " << error.what() << '\n';
  } catch (const Zor::Exception& error) {  // the base of all that the library raises
    std::cout << "failed: " << error.what() << '\n';
  } catch (const std::bad_alloc&) {
    std::cout << "out of memory\n";
  } catch (const std::length_error& error) {
    std::cout << "too long for memory: " << error.what() << '\n';
  }
  return false;
}

}  // namespace

int main() {
  Zor::TKDXLabel label, other;
  auto* text = label.NewText(0, 0);
  Try([&] { label.LoadFromFile("missing.json"); });
  Try([&] { label.SaveToFile("no/such/folder.json", Zor::lfJSON); });
  Try([&] { label.LoadFromBytes("{\"Version\": 3200,\n \"Items\": [}"); });
  Try([&] { text->SetFontHeight(std::numeric_limits<float>::infinity()); });
  Try([&] { other.DeleteItem(text, true); });
  Try([&] { label.NewQRCode(0, 0, std::string(3000, 'x')); });

  // What was refused left nothing behind: there is the text, and its making is all that can be taken back.
  label.Undo();
  std::cout << label.GetItemsCount() << " items left, undo is "
            << (label.IsUndoEmpty() ? "empty" : "not empty") << '\n';
  // Indexes and names that do not fit are no errors.
  std::cout << "layer 7: " << (label.SetActiveLayer(7) ? "active" : "there is none") << '\n';
}
