#pragma once
// Keeping the screen saver away.

#include <memory>

namespace vellumark::platform {

/// Tells the system, again and again, that the user is there. What it brought about ends with the object.
///
/// On Windows each report is an input event that moves nothing. On Linux the first one asks the session's
/// screen saver to wait (org.freedesktop.ScreenSaver on the session bus, through libsystemd, which is loaded
/// only for this); without a session bus or such a service nothing happens.
class UserActivity {
 public:
  UserActivity();
  ~UserActivity();
  UserActivity(const UserActivity&) = delete;
  UserActivity& operator=(const UserActivity&) = delete;

  void report();

 private:
  struct Session;
  std::unique_ptr<Session> session_;
};

}  // namespace vellumark::platform
