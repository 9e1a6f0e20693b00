#pragma once
// The error trap that nearly every procedure carries, and the local mode that passes over a failing
// statement.

#include <functional>
#include <new>
#include <string_view>
#include <type_traits>

#include "base/error.h"

namespace vellumark::base {

/// What a trap does with a failure: the location string of the procedure ("TrimlineTools, align") and the
/// error.
using FailureHandler = std::function<void(std::string_view location, const Error& error)>;

/// Sets the one route that every trap hands its failures to and returns the one before. Without one, failures
/// pass through the traps to their callers.
FailureHandler setFailureHandler(FailureHandler handler);

namespace detail {
void report(std::string_view location, const Error& error);
/// The exception being handled as an Error: itself, 7 for exhausted memory, 51 for anything else.
Error currentError();
}  // namespace detail

/// Runs `body`. A failure ends the body, is reported under `location`, and the caller goes on with the empty
/// result. A failure of the reporting itself goes to the caller's own trap.
template <typename Body>
auto trap(std::string_view location, Body&& body) -> std::invoke_result_t<Body> {
  using Result = std::invoke_result_t<Body>;
  try {
    return body();
  } catch (...) {
    detail::report(location, detail::currentError());
  }
  if constexpr (!std::is_void_v<Result>) return Result{};
}

/// As above, for procedures that look at the error first: where `expected(error)` answers true it has dealt
/// with the failure, and nothing is reported.
template <typename Body, typename Filter>
auto trap(std::string_view location, Body&& body, Filter&& expected) -> std::invoke_result_t<Body> {
  using Result = std::invoke_result_t<Body>;
  try {
    return body();
  } catch (...) {
    const Error error = detail::currentError();
    if (!expected(error)) detail::report(location, error);
  }
  if constexpr (!std::is_void_v<Result>) return Result{};
}

/// Runs one statement and passes over its failure. True when it did not fail.
template <typename Statement>
bool resumeNext(Statement&& statement) {
  try {
    statement();
    return true;
  } catch (const Error&) {
    return false;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace vellumark::base
