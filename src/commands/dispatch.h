#pragma once
// How a command starts, whoever asks for it: the undo fix, the usage counters, the way to the command.

#include <cstdint>
#include <string>
#include <string_view>

namespace vellumark::commands {

/// The number of a ribbon control: the text from the fourth character of its id on ("zp_1025"), as a 16-bit
/// integer. An id of another form raises a conversion error.
std::int16_t controlNumber(const std::string& id);

/// Runs the macro that serves the host's undo history. Every failure in it is passed over.
void runUndoFix();

/// The counter of a ribbon number, nullptr where it counts nothing. Galleries count too, by numbers above
/// 2000.
const char* counterOf(std::int16_t number);
/// The counter of a toolbar entry, by its parameter without the "!".
const char* counterOf(std::string_view parameter);
/// Adds 1 to a usage counter. A value that is no number raises 13, one at the limit 6.
void count(const char* counter);

}  // namespace vellumark::commands
