#pragma once

#include <windows.h>

#include <set>

namespace vellumark::ui {

class Timer;

namespace win32 {

class EventLoops;
class Resources;

/// Ticks for the timers that run, by whatever message loop of the thread runs. The system ticks every 10
/// milliseconds at most.
class Tickers {
 public:
  Tickers(EventLoops& loops, const Resources& resources);
  ~Tickers();
  Tickers(const Tickers&) = delete;
  Tickers& operator=(const Tickers&) = delete;

  void start(Timer& timer);
  void stop(Timer& timer);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT code, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR data);
  void ticked(Timer* timer);

  EventLoops& loops_;
  HWND window_;  ///< never seen
  std::set<Timer*> timers_;
};

}  // namespace win32
}  // namespace vellumark::ui
