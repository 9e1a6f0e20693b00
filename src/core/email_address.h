#pragma once
// The form of an e-mail address.

#include <string_view>

namespace vellumark::core {

/// Whether the whole text matches, in any case, the expression
///   ^(([A-Za-z0-9]+_+)|([A-Za-z0-9]+\-+)|([A-Za-z0-9]+\.+)|([A-Za-z0-9]+\++))*[A-Za-z0-9]+
///   @((\w+\-+)|(\w+\.))*\w{1,63}\.[a-zA-Z]{2,6}$
/// in which \w is an ASCII letter, a digit or "_". Takes one pass, whatever the text: an engine that
/// backtracks would need exponential time for some.
bool matchesEmailAddress(std::string_view text);

}  // namespace vellumark::core
