#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/editor/TKDXFileLabel.hpp"

namespace Zor::inline Base {

/// Reads a document strictly and lists everything that is wrong with it, each with its place: what makes it
/// unreadable, and what a reader takes leniently (missing and unknown keys, values that are held at a limit
/// or read as another one, identities that occur twice, a label without a size, codes that no reader finds).
///
/// `aScratch` is a document of the host's class; its content is lost. An empty list: nothing is wrong.
std::vector<std::string> CheckDocument(TKDXFileLabel& aScratch, std::string_view aBytes);

}  // namespace Zor::inline Base
