#pragma once
// The host's event interfaces: their ids, and which number stands for which event.

#include <span>

#include "host/automation/com.h"
#include "host/member.h"

namespace vellumark::host::automation {

struct EventInterface {
  struct Event {
    DISPID number;
    Member name;
  };
  IID id;
  const char* source;  ///< class of the objects that raise the events
  std::span<const Event> events;

  /// The event of that number; nothing for one that this program doesn't know.
  const Event* find(DISPID number) const;
  const Event* find(Member name) const;
};

/// The application's events, those of command bar buttons and of command bar combo boxes.
std::span<const EventInterface> eventInterfaces();

}  // namespace vellumark::host::automation
