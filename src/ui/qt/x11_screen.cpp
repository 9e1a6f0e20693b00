#include "ui/qt/x11_screen.h"

#include <xcb/xcb.h>

#include <QObject>
#include <QSocketNotifier>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "base/error.h"
#include "platform/environment.h"

namespace vellumark::ui::qt {
namespace {

[[noreturn]] void fail(const char* what) {
  base::raise(base::errors::unspecific, base::standardDescription(base::errors::unspecific) + ": " + what);
}

/// What the server hands out is the caller's to free.
struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

/// A connection of its own and the screen that DISPLAY names; both empty where no server answers.
std::pair<xcb_connection_t*, xcb_screen_t*> connect() {
  int number = 0;
  xcb_connection_t* connection = xcb_connect(nullptr, &number);
  if (xcb_connection_has_error(connection) == 0) {
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (number-- > 0 && screens.rem > 1) xcb_screen_next(&screens);
    if (screens.rem > 0) return {connection, screens.data};
  }
  xcb_disconnect(connection);
  return {};
}

const xcb_visualtype_t* rootVisual(const xcb_screen_t& screen) {
  for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0; xcb_depth_next(&depths)) {
    for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0;
         xcb_visualtype_next(&visuals)) {
      if (visuals.data->visual_id == screen.root_visual) return visuals.data;
    }
  }
  return nullptr;
}

/// The channel of a pixel that a mask marks, from 0 to 255.
int channel(std::uint32_t value, std::uint32_t mask) {
  if (mask == 0) return 0;
  const int shift = std::countr_zero(mask);
  const std::uint32_t most = mask >> shift;
  return static_cast<int>(((value & mask) >> shift) * 255 / most);
}

/// The buttons that are taken, and what Windows calls their going down.
constexpr std::pair<std::uint8_t, std::uint32_t> buttons[] = {{1, leftButtonDown}, {3, rightButtonDown}};

class Grab : public MouseHook {
 public:
  explicit Grab(MouseProc procedure) : procedure_(std::move(procedure)) {
    const auto [connection, screen] = connect();
    if (!connection) fail("The X server takes no further connection.");
    connection_ = connection;
    for (const auto& [button, message] : buttons) {
      const xcb_void_cookie_t asked = xcb_grab_button_checked(
          connection_, 0, screen->root, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_SYNC, XCB_GRAB_MODE_ASYNC,
          XCB_NONE, XCB_NONE, button, XCB_MOD_MASK_ANY);
      if (const Owned<xcb_generic_error_t> refused{xcb_request_check(connection_, asked)}) {
        xcb_disconnect(connection_);
        fail("Another program has taken the buttons of the mouse.");
      }
    }
    notifier_ =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { answerAll(); });
  }
  ~Grab() override {
    notifier_.reset();
    xcb_disconnect(connection_);
  }
  Grab(const Grab&) = delete;
  Grab& operator=(const Grab&) = delete;

 private:
  void answerAll() {
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
      if ((event->response_type & 0x7F) != XCB_BUTTON_PRESS) continue;
      const auto& press = reinterpret_cast<const xcb_button_press_event_t&>(*event);
      const bool passOn = answerTo(press.detail) == MouseAnswer::passOn;
      xcb_allow_events(connection_, passOn ? XCB_ALLOW_REPLAY_POINTER : XCB_ALLOW_ASYNC_POINTER, press.time);
      xcb_flush(connection_);
    }
    if (xcb_connection_has_error(connection_)) notifier_->setEnabled(false);
  }

  MouseAnswer answerTo(std::uint8_t pressed) noexcept {
    try {
      for (const auto& [button, message] : buttons) {
        if (button == pressed) return procedure_(0, message);
      }
    } catch (...) {
      // Whatever fails here, the mouse must go on.
    }
    return MouseAnswer::passOn;
  }

  MouseProc procedure_;
  xcb_connection_t* connection_ = nullptr;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace

std::unique_ptr<X11Screen> X11Screen::open() {
  if (platform::environmentVariable("WAYLAND_DISPLAY") ||
      platform::environmentVariable("XDG_SESSION_TYPE") == "wayland") {
    return nullptr;
  }
  const auto [connection, screen] = connect();
  return std::unique_ptr<X11Screen>(connection ? new X11Screen(connection, screen) : nullptr);
}

X11Screen::~X11Screen() { xcb_disconnect(connection_); }

Point X11Screen::cursor() {
  const Owned<xcb_query_pointer_reply_t> reply{
      xcb_query_pointer_reply(connection_, xcb_query_pointer(connection_, screen_->root), nullptr)};
  if (!reply) fail("The X server doesn't tell where the mouse is.");
  return {reply->root_x, reply->root_y};
}

/// Asked anew, because screens are added and turned.
Size X11Screen::size() {
  const Owned<xcb_get_geometry_reply_t> reply{
      xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, screen_->root), nullptr)};
  if (!reply) fail("The X server doesn't tell how large the screen is.");
  return {reply->width, reply->height};
}

std::vector<Color> X11Screen::copy(const Rect& area) {
  const auto width = static_cast<std::uint16_t>(area.width), height = static_cast<std::uint16_t>(area.height);
  const Owned<xcb_get_image_reply_t> reply{xcb_get_image_reply(
      connection_,
      xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, static_cast<std::int16_t>(area.x),
                    static_cast<std::int16_t>(area.y), width, height, ~0U),
      nullptr)};
  const xcb_visualtype_t* visual = rootVisual(*screen_);
  const std::size_t count = std::size_t{width} * height;
  // Pixels of 24 bits come in four bytes each; screens with fewer colours have gone.
  if (!reply || !visual || static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) < count * 4) {
    fail("The X server doesn't tell the colors of the screen.");
  }
  const std::uint8_t* bytes = xcb_get_image_data(reply.get());
  const bool swapped = (xcb_get_setup(connection_)->image_byte_order == XCB_IMAGE_ORDER_MSB_FIRST) ==
                       (std::endian::native == std::endian::little);
  std::vector<Color> colors;
  colors.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    std::uint32_t value = 0;
    std::memcpy(&value, bytes + 4 * i, sizeof value);
    if (swapped) value = __builtin_bswap32(value);
    colors.push_back(rgb(channel(value, visual->red_mask), channel(value, visual->green_mask),
                         channel(value, visual->blue_mask)));
  }
  return colors;
}

Color X11Screen::pixel(const Point& point) { return copy({point.x, point.y, 1, 1}).front(); }

std::unique_ptr<MouseHook> X11Screen::hookMouse(MouseProc procedure) {
  return std::make_unique<Grab>(std::move(procedure));
}

}  // namespace vellumark::ui::qt
