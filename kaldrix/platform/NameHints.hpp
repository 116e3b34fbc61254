// What a message about a name that is not there tells of the names that are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Zor {

/// How many characters have to be put in, left out or exchanged to make one text of the other, without regard
/// to case (the distance of Levenshtein). Texts are taken up to 64 characters. Costs the product of both
/// lengths.
int NameDistance(std::string_view aFirst, std::string_view aSecond);

/// The tail of such a message, nearest names first: "; there is 'a'", "; there are 'a', 'b'",
/// "; the nearest of 40 are 'a', 'b', 'c', 'd', 'e'", "; there is none".
std::string NameHint(std::string_view aWanted, const std::vector<std::string>& aNames);

}  // namespace Zor
