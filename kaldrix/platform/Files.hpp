// Files by name. Names are UTF-8; the separator of folders is "/".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Zor {

/// What the operations that read a whole file take at most: 2 GiB until SetInputLimit says otherwise. Holds
/// for the process.
std::size_t InputLimit();
void SetInputLimit(std::size_t aBytes);

/// The whole content of a file. EFileNotFoundException when there is none, EStreamError with name and reason
/// when it is a folder or a device without an end, cannot be read or holds more than `aMaxBytes`.
std::string ReadFile(const std::string& aFileName, std::size_t aMaxBytes = InputLimit());
/// The same of what is open by a number; `aName` is for messages.
std::string ReadDescriptor(int aHandle, const std::string& aName, std::size_t aMaxBytes = InputLimit());

/// Puts `aBytes` in the place of the file's content, so that a crash leaves the old file or the new one; see
/// TAtomicFile. On failure nothing is left behind and EStreamError names the file and the reason.
void WriteFileAtomically(const std::string& aFileName, std::string_view aBytes);

/// Copies the content of a file onto another, as WriteFileAtomically does.
void CopyFileAtomically(const std::string& aFrom, const std::string& aTo);

/// Whether there is a file (not a folder) of that name; false for an empty name.
bool FileExists(const std::string& aFileName);
bool DirectoryExists(const std::string& aFolder);
/// Removes a file; one that does not exist is no error.
void RemoveFile(const std::string& aFileName);

/// What stands behind the last separator: "c.png" of "a/b/c.png".
std::string ExtractFileName(std::string_view aFileName);
/// What stands before it, without the separator ("a/b"; "/" for a file at the root; empty without a folder).
std::string ExtractFileDir(std::string_view aFileName);
/// The extension with its point (".png"); empty without one. A point that begins the name begins no
/// extension.
std::string ExtractFileExt(std::string_view aFileName);
/// The name with the extension replaced by `aExt`, which begins with a point or is empty.
std::string ChangeFileExt(std::string_view aFileName, std::string_view aExt);

bool IsRelativePath(std::string_view aFileName);
/// `aFileName` below `aFolder`; an absolute name, or an empty folder, gives the name itself.
std::string CombinePath(std::string_view aFolder, std::string_view aFileName);
/// The absolute form, without "." and "..", of a name that stands relative to the current folder.
/// The file need not exist; symbolic links are not followed.
std::string ExpandFileName(std::string_view aFileName);
/// `aFileName` as seen from `aFolder` ("../images/a.png"). Both are made absolute first.
std::string ExtractRelativePath(std::string_view aFolder, std::string_view aFileName);

/// The folder of the running program, absolute.
std::string ProgramFolder();

}  // namespace Zor
