#pragma once
// Folders in the shared temporary one that nobody else can enter or foresee.

#include <string>

namespace vellumark::platform {

/// Makes a new folder in the temporary one, open to this user alone, under a name that can't be guessed. Its
/// path, in the logic's form, ends in a backslash. base::Error 75 where the system refuses.
std::string newPrivateFolder();

/// Deletes the folder of a file where newPrivateFolder() made it and it is empty by now.
void dropPrivateFolder(const std::string& file);

}  // namespace vellumark::platform
