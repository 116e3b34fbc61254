// The descriptors 0 to 2, which every program has, and the names that lead to open files.
#pragma once

#include <optional>
#include <string>

namespace Zor {

/// Has to run before any file is opened: a file that came by the number of a closed stream would take what is
/// written to that stream. A closed stream stands on /dev/null from now on, open the other way, so that
/// reading or writing it fails as it did; messages to a closed standard error go nowhere.
void OpenStandardStreams();

/// The descriptor of this process that a name leads to: /dev/stdout, /dev/fd/N, /proc/self/fd/N, or a link to
/// one of these. A file behind such a name was opened by whoever called the program.
std::optional<int> DescriptorOfName(const std::string& aFileName);

/// What a chain of symbolic links points at, whether it is there or not; the name itself when it is no link.
/// Raises EStreamError when the chain has no end.
std::string FollowLinks(const std::string& aFileName);

}  // namespace Zor
