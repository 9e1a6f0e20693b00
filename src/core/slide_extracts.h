#pragma once
// Presentations made of selected slides, which lie in the temporary folder until the add-in is disconnected:
// a mail program might still be reading them.

#include <string>

namespace vellumark::core {

/// A path for one of that name, in a new folder that only this user can enter. Other programs of the add-in
/// leave it alone as long as this one lives.
std::string newSlideExtract(const std::string& name);

/// Notes that the file of such a path has been made.
void rememberSlideExtract(const std::string& path);

/// Deletes all that were noted, but for those of other programs that are running. A file that can't be
/// deleted is a failure, and leaves the whole list to the next time.
void deleteSlideExtracts();

}  // namespace vellumark::core
