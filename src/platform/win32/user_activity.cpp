#include "platform/user_activity.h"

#include <windows.h>

namespace vellumark::platform {

struct UserActivity::Session {};

UserActivity::UserActivity() = default;
UserActivity::~UserActivity() = default;

void UserActivity::report() {
  INPUT event = {};
  event.type = INPUT_MOUSE;
  event.mi.dwFlags = MOUSEEVENTF_MOVE;  // by nothing in both directions
  SendInput(1, &event, sizeof event);
}

}  // namespace vellumark::platform
