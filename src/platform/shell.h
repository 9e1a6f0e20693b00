#pragma once
// What the desktop opens for us.

#include <string>

namespace vellumark::platform {

/// Results of openURL(). Above 32 is success.
namespace shell {
inline constexpr int outOfMemory = 0;
inline constexpr int fileNotFound = 2;
inline constexpr int accessDenied = 5;
inline constexpr int noAssociation = 31;
inline constexpr int opened = 33;
}  // namespace shell

/// Opens a web page, a mail link or a document in the user's program for it and goes on without waiting for
/// that program to end. The result is one of those above.
///
/// On Windows the results are the system's own, and failures are seen at once.
///
/// On Linux xdg-open does it, or the program that the environment variable VELLUMARK_OPENER names. Its
/// failures are seen if they come within the first second.
int openURL(const std::string& url);

/// Shows a file in its folder in the user's file manager, selected where the system can do that (Windows), or
/// the folder alone. 53 where nothing can show it.
void showInFolder(const std::string& file);

/// Hands a file to the user's mail program as an attachment that is called `name`, and goes on without
/// waiting for it. 53 where nothing can do that, 75 or 76 where the file can't be read.
///
/// On Windows the program `mailer` does it, in a minimised window.
///
/// On Linux xdg-email does it, or the program that the environment variable VELLUMARK_MAILER names. The mail
/// program may read the file much later, so it gets a copy of it in a folder of its own, where copies of
/// earlier days are cleared away.
void mailFile(const std::string& mailer, const std::string& name, const std::string& file);

/// Opens a help file on a context id. False where the file is missing or nothing can show it. On Linux the
/// program for such files shows its first page: there is no common way to hand it the id.
bool openHelp(const std::string& file, int contextId);

}  // namespace vellumark::platform
