#pragma once

#include <array>
#include <string_view>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Types {

/// How a linear symbology is named: to programs, and to people.
struct TBarTypeName {
  std::string_view word;
  std::string_view title;
};

/// By ordinal of TZORBarType.
inline constexpr std::array<TBarTypeName, EnumCount<TZORBarType>> BarTypeNames{{
    {"ean13", "EAN-13"},
    {"ean8", "EAN-8"},
    {"upca", "UPC-A"},
    {"upce0", "UPC-E"},
    {"code39", "Code 39"},
    {"code39ex", "Code 39 full ASCII"},
    {"code93", "Code 93"},
    {"code93ex", "Code 93 full ASCII"},
    {"codabar", "Codabar"},
    {"ean128a", "GS1-128 set A"},
    {"ean128b", "GS1-128 set B"},
    {"ean128c", "GS1-128 set C"},
    {"ean128auto", "GS1-128"},
    {"code128a", "Code 128 set A"},
    {"code128b", "Code 128 set B"},
    {"code128c", "Code 128 set C"},
    {"code128auto", "Code 128"},
    {"inter25", "Interleaved 2 of 5"},
    {"indus25", "Industrial 2 of 5"},
    {"matrix25", "Matrix 2 of 5"},
    {"code11", "Code 11"},
    {"msi", "MSI"},
    {"postnet", "POSTNET"},
}};

}  // namespace Zor::inline Types
