#include "base/error.h"

namespace vellumark::base {

std::string standardDescription(int number) {
  switch (number) {
    case errors::invalidCall:
      return "Invalid procedure call or argument";
    case errors::overflow:
      return "Overflow";
    case errors::outOfMemory:
      return "Out of memory";
    case errors::subscript:
      return "Subscript out of range";
    case errors::divisionByZero:
      return "Division by zero";
    case errors::typeMismatch:
      return "Type mismatch";
    case errors::internal:
      return "Internal error";
    case errors::fileNotFound:
      return "File not found";
    case errors::fileAccess:
      return "Path/File access error";
    case errors::pathNotFound:
      return "Path not found";
    case errors::objectNotSet:
      return "Object variable or With block variable not set";
    case errors::noSuchMember:
      return "Object doesn't support this property or method";
    case errors::noSuchNamedArgument:
      return "Named argument not found";
    case errors::wrongArgumentCount:
      return "Wrong number of arguments or invalid property assignment";
    case errors::duplicateKey:
      return "This key is already associated with an element of this collection";
    case errors::invalidRequest:
      return "Invalid request.";
    case errors::unspecific:
      return "Unspecified error";
    case errors::outOfRange:
      return "The specified value is out of range.";
    default:
      return "Application-defined or object-defined error";
  }
}

void raise(int number) { throw Error(number, standardDescription(number)); }

void raise(int number, std::string description) { throw Error(number, std::move(description)); }

}  // namespace vellumark::base
