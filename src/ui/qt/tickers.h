#pragma once

#include <QObject>
#include <map>

namespace vellumark::ui {

class Timer;

namespace qt {

class EventLoops;

/// Ticks for the timers that run, by whatever loop of Qt runs.
class Tickers : public QObject {
 public:
  explicit Tickers(EventLoops& loops) : loops_(loops) {}
  void start(Timer& timer);
  void stop(const Timer& timer);

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  EventLoops& loops_;
  std::map<int, Timer*> timers_;  ///< by Qt's number
};

}  // namespace qt
}  // namespace vellumark::ui
