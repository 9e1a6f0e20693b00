#include "platform/posix/desktop_color.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/posix/bus_client.h"

namespace vellumark::platform {
namespace {

constexpr const char* portal = "org.freedesktop.portal.Desktop";
constexpr const char* object = "/org/freedesktop/portal/desktop";
constexpr const char* screenshot = "org.freedesktop.portal.Screenshot";
constexpr const char* request = "org.freedesktop.portal.Request";
constexpr const char* token = "vellumark";
constexpr std::uint64_t patience = 5'000'000;  // microseconds for the desktop to accept the question
constexpr std::uint64_t pause = 20'000;        // microseconds between two looks at the rest of the program

/// What the portal's signal says.
struct Response {
  bool arrived = false;
  std::optional<std::array<double, 3>> color;
};

/// The signal (ua{sv}): 0 and the colour, or why there is none.
void readResponse(sd_bus_message* message, Response& response) {
  const BusClient& client = busClient();
  std::uint32_t outcome = 1;
  response.arrived = true;
  if (client.read(message, "u", &outcome) <= 0 || outcome != 0) return;
  if (client.enter(message, 'a', "{sv}") <= 0) return;
  while (client.enter(message, 'e', "sv") > 0) {
    const char* key = nullptr;
    if (client.read(message, "s", &key) <= 0) return;
    if (std::strcmp(key, "color") == 0 && client.enter(message, 'v', "(ddd)") > 0) {
      std::array<double, 3> color{};
      if (client.read(message, "(ddd)", &color[0], &color[1], &color[2]) > 0) response.color = color;
      return;
    }
    if (client.skip(message, "v") < 0 || client.leave(message) < 0) return;
  }
}

int responded(sd_bus_message* message, void* data, sd_bus_error*) {
  readResponse(message, *static_cast<Response*>(data));
  return 0;
}

/// A connection to the session bus for one question. What waits on it goes with it.
class Question {
 public:
  Question() {
    if (busClient().complete && busClient().openUser(&bus_) < 0) bus_ = nullptr;
  }
  ~Question() {
    if (bus_) busClient().closeBus(bus_);
  }
  Question(const Question&) = delete;
  Question& operator=(const Question&) = delete;

  /// False where nobody on the bus takes the question.
  bool ask() {
    const BusClient& client = busClient();
    const char* name = nullptr;
    if (!bus_ || client.uniqueName(bus_, &name) < 0) return false;
    // The answer comes as a signal of an object whose path is known before, so that none is missed.
    std::string sender(name + 1);
    std::ranges::replace(sender, '.', '_');
    path_ = std::string(object) + "/request/" + sender + "/" + token;
    if (client.matchSignal(bus_, nullptr, nullptr, path_.c_str(), request, "Response", responded,
                           &response_) < 0) {
      return false;
    }
    client.setTimeout(bus_, patience);
    return client.callMethod(bus_, portal, object, screenshot, "PickColor", nullptr, nullptr, "sa{sv}", "", 1,
                             "handle_token", "s", token) >= 0;
  }

  /// Whether an answer may still come.
  bool waits() {
    const BusClient& client = busClient();
    const int done = client.process(bus_, nullptr);
    if (response_.arrived || done < 0) return false;
    if (done == 0) client.wait(bus_, pause);
    return true;
  }

  void giveUp() {
    busClient().callMethod(bus_, portal, path_.c_str(), request, "Close", nullptr, nullptr, "");
  }

  const Response& response() const { return response_; }

 private:
  sd_bus* bus_ = nullptr;
  std::string path_;
  Response response_;
};

}  // namespace

PickedColor pickDesktopColor(const std::function<bool()>& goesOn) {
  Question question;
  if (!question.ask()) {
    return {
        {},
        "Colors can't be picked from the screen: this desktop shows it to no program, and no color picker of "
        "its own answers (org.freedesktop.portal.Screenshot). Install the desktop's portal, "
        "xdg-desktop-portal, or use a session under X11."};
  }
  while (question.waits()) {
    if (goesOn()) continue;
    question.giveUp();
    break;
  }
  return {question.response().color, {}};
}

}  // namespace vellumark::platform
