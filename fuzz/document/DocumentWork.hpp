#pragma once

#include <string>
#include <string_view>

namespace Zor {

/// What stands before the payload of a binary file.
std::string Framed(std::string_view aPayload);

/// Reads the bytes as a document and does with it what programs do; aborts when a promise is broken: bytes
/// that are refused leave the document as it was and are told by the check, others give a document that
/// comes through both file forms unchanged and whose edits can be taken back.
void WorkOnDocument(std::string_view aBytes);

}  // namespace Zor
