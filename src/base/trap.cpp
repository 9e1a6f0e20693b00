#include "base/trap.h"

#include <utility>

namespace vellumark::base {
namespace {
FailureHandler& route() {
  static FailureHandler handler;
  return handler;
}
}  // namespace

FailureHandler setFailureHandler(FailureHandler handler) {
  return std::exchange(route(), std::move(handler));
}

namespace detail {

void report(std::string_view location, const Error& error) {
  if (!route()) throw error;
  route()(location, error);
}

Error currentError() {
  try {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return Error(errors::outOfMemory, standardDescription(errors::outOfMemory));
  } catch (const std::exception& error) {
    return Error(errors::internal, standardDescription(errors::internal) + ": " + error.what());
  }
}

}  // namespace detail
}  // namespace vellumark::base
