#pragma once
// The routines that several families call and that belong to none.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/shape.h"
#include "ui/form.h"

namespace vellumark::core {

/// `bytes` read in the ANSI code page.
std::string ByteArrayToString(const std::string& bytes);
/// The number of bytes; 0 for an empty array.
std::int32_t byteArrayLength(const std::string& bytes);
/// `length` bytes from `start`, all that are left where `length` is 0 or reaches too far (and `length` is
/// then set to that count). Empty where `start` lies beyond the end.
std::string ByteArraySub(const std::string& bytes, std::int32_t start, std::int32_t& length);

/// The shape's rotation in degrees, brought into one turn: -90 gives 270 and 450 gives 90. The rotation is
/// rounded before whole turns are counted, so -360 gives 360 and 359.6 gives -0.4.
double normalizeRotation(const host::Shape& shape);

/// Makes a folder with all parents that are missing. A trailing backslash is allowed.
void createFolder(const std::string& path);
/// Whether a name holds none of the characters that a file name must not have. One NUL is appended to `name`
/// and stays there. An empty name is valid.
bool isValidFileName(std::string& name);
/// Whether an address looks like one. `address` is trimmed and stays so.
bool isValidEmail(std::string& address);

/// System folders with a backslash at the end.
std::string getInternetCachePath();
std::string getTmpPath();

/// A new GUID as 36 upper-case hexadecimal characters with hyphens; empty where the system gives none.
std::string getGUID();
/// `value` in upper-case hexadecimal, filled with "0" on the left to `width`.
std::string padHex(std::uint32_t value, int width);

/// Opens a web page or mail link in the user's program for it.
void openURL(const std::string& url);
/// Opens the help on that context id.
void showHelpContextID(int id);
/// Keeps a form above all other windows, or no longer. Without a trap.
void topWindow(ui::Form& form, bool on);

}  // namespace vellumark::core
