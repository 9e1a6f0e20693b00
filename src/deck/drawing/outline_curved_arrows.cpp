// Arrows along ellipses.

#include <algorithm>
#include <cmath>

#include "deck/drawing/ellipse_angle.h"
#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {
namespace {

using Point = Form::Point;

/// The band of a curved arrow that starts above, bulges to the left and points to the right: half an ellipse,
/// and the same again moved down by the thickness. They meet inside, where the back of the band turns to the
/// front.
class Band {
 public:
  /// With `limited`, thickness and head stay within what the frame has room for.
  Band(const Form& form, bool limited) : w_(form.w) {
    const double width = form.length(1, form.cy);  // of the head
    const double thick = form.length(0, limited ? width : form.side);
    radius_ = form.cy - (thick + width) / 4;
    upper_ = {w_, radius_};
    lower_ = {w_, radius_ + thick};
    const double crossing =
        std::sqrt(std::max(0.0, 4 * radius_ * radius_ - thick * thick)) * w_ / (2 * radius_);
    const double head = limited ? pin(0, form.side * form.ratio(2), crossing) : form.side * form.ratio(2);
    const double down = std::sqrt(std::max(0.0, w_ * w_ - head * head)) * radius_ / w_;
    bend_ = directionOf(head, down);
    meeting_ = directionOf(crossing, thick / 2);
    const double barb = (width - thick) / 2, x = w_ - head;
    upperBarb_ = {x, upper_.y + down - barb};
    tip_ = {w_, form.h - width / 2};
    lowerBarb_ = {x, lower_.y + down + barb};
  }

  /// Along an ellipse between two angles, counted from the left downward.
  void upper(Form& form, double from, double to) const { along(form, upper_, from, to); }
  void lower(Form& form, double from, double to) const { along(form, lower_, from, to); }
  void headDown(Form& form) const { line(form, upperBarb_).line(form, tip_).line(form, lowerBarb_); }
  void headUp(Form& form) const { line(form, lowerBarb_).line(form, tip_).line(form, upperBarb_); }

  double bend() const { return bend_; }        ///< where the head begins
  double meeting() const { return meeting_; }  ///< where the ellipses meet: of the lower one this far above

 private:
  void along(Form& form, Point centre, double from, double to) const {
    form.around(centre, w_, radius_, 180 - from, from - to);
  }
  const Band& line(Form& form, Point to) const {
    form.lineTo(to.x, to.y);
    return *this;
  }

  double w_, radius_ = 0, bend_ = 0, meeting_ = 0;
  Point upper_, lower_;  ///< centres
  Point upperBarb_, tip_, lowerBarb_;
};

/// The back shows from the top to where the ellipses meet.
void backAbove(Form& form, bool limited) {
  const Band band(form, limited);
  band.upper(form.area(), 0, band.bend());
  band.headDown(form);
  band.lower(form, band.bend(), 0);
  form.close();
  band.lower(form.area(PathFill::darkenLess), -90, -band.meeting());
  band.upper(form, band.meeting(), -90);
  form.close();
  band.upper(form.lines(), 0, band.bend());
  band.headDown(form);
  band.lower(form, band.bend(), 0);
  band.upper(form, 0, -90);
  band.lower(form, -90, -band.meeting());
}

/// The front shows from the head to where the ellipses meet.
void frontBelow(Form& form, bool limited) {
  const Band band(form, limited);
  band.upper(form.area(), band.meeting(), band.bend());
  band.headDown(form);
  band.lower(form, band.bend(), -band.meeting());
  form.close();
  band.lower(form.area(PathFill::darkenLess), 0, -90);
  band.upper(form, -90, 0);
  form.close();
  band.lower(form.lines(), 0, -90);
  band.upper(form, -90, 0);
  band.lower(form, 0, band.bend());
  band.headUp(form);
  band.upper(form, band.bend(), band.meeting());
}

/// An angle brought above 0 and up to a whole turn.
double positive(double angle) { return angle - 360 * (std::ceil(angle / 360) - 1); }

/// A ring that ends in the head of an arrow. Angles are directions from the centre.
class Ring {
 public:
  explicit Ring(const Form& form) : centre_{form.cx, form.cy} {
    head_ = form.side * form.ratio(4, 0, 0.25);
    const double thick = pin(0, form.side * form.ratio(0), 2 * head_);
    outerX = form.cx + thick / 2 - head_;
    outerY = form.cy + thick / 2 - head_;
    innerX = outerX - thick;
    innerY = outerY - thick;
    end = pin(1.0 / 60'000, form.angle(2), 360 - 1.0 / 60'000);
    start = form.direction(3);
    foot_ = inMiddle(end);
  }

  Point at(double direction, double radiusX, double radiusY) const {
    return onEllipse(centre_, radiusX, radiusY, ellipseParameter(direction, radiusX, radiusY));
  }
  Point inMiddle(double direction) const {
    return at(direction, (outerX + innerX) / 2, (outerY + innerY) / 2);
  }

  /// How far the tip may lie ahead of the head's foot: as far as a tangent from there to the inner circle
  /// goes.
  double farthestTip() const {
    const double r = std::min(innerX, innerY), x = foot_.x - centre_.x, y = foot_.y - centre_.y;
    const double root = r * std::sqrt(std::max(0.0, x * x + y * y - r * r));
    const double crosswise = x * x - r * r;
    // The slope of the tangent; upright where the foot lies right above the circle's side.
    const double slope = crosswise == 0 ? 0 : (x * y + std::copysign(root, x * y)) / crosswise;
    const double ahead = positive(positive(directionOf(1, slope)) - end);
    return std::abs(ahead > 180 ? ahead - 360 : ahead);
  }

  /// Finds the places of the head with its tip so far ahead of its foot.
  void setTip(double ahead) {
    tip = inMiddle(end + ahead);
    const double direction = end + ahead;
    outerBarb = onEllipse(foot_, head_, head_, direction);
    innerBarb = onEllipse(foot_, head_, head_, direction + 180);
    outerEnd = crossing(outerX, outerY, 1);
    innerEnd = crossing(innerX, innerY, 0);
    wide = std::hypot(outerEnd.x - innerEnd.x, outerEnd.y - innerEnd.y) / 2 <= head_;
  }

  double directionTo(Point place) const {
    return positive(directionOf(place.x - centre_.x, place.y - centre_.y));
  }
  void outer(Form& form, double from, double sweep) const {
    form.around(centre_, outerX, outerY, from, sweep);
  }
  void inner(Form& form, double from, double sweep) const {
    form.around(centre_, innerX, innerY, from, sweep);
  }
  /// From the outer end over the tip to the inner one. Barbs that don't stand out are left out.
  void headInward(Form& form) const {
    if (wide) line(form, outerBarb);
    line(form, tip);
    if (wide) line(form, innerBarb);
    line(form, innerEnd);
  }
  void headOutward(Form& form) const {
    if (wide) line(form, innerBarb);
    line(form, tip);
    if (wide) line(form, outerBarb);
    line(form, outerEnd);
  }
  static void line(Form& form, Point to) { form.lineTo(to.x, to.y); }
  double headSize() const { return head_; }

  double outerX = 0, outerY = 0, innerX = 0, innerY = 0;
  double start = 0, end = 0;
  Point tip, outerBarb, innerBarb, outerEnd, innerEnd;
  bool wide = false;  ///< the head is wider than the ring

 private:
  /// Where the line through the barbs meets an ellipse; of two places the one nearer to a share of the way
  /// from the inner barb to the outer one.
  Point crossing(double radiusX, double radiusY, double nearTo) const {
    if (radiusX <= 0 || radiusY <= 0) return centre_;
    const Point step{outerBarb.x - innerBarb.x, outerBarb.y - innerBarb.y};
    const double px = (innerBarb.x - centre_.x) / radiusX, py = (innerBarb.y - centre_.y) / radiusY;
    const double dx = step.x / radiusX, dy = step.y / radiusY;
    const double a = dx * dx + dy * dy, b = px * dx + py * dy, c = px * px + py * py - 1;
    if (a == 0) return innerBarb;
    const double root = std::sqrt(std::max(0.0, b * b - a * c));
    const double first = (-b + root) / a, second = (-b - root) / a;
    const double way = std::abs(first - nearTo) < std::abs(second - nearTo) ? first : second;
    return {innerBarb.x + way * step.x, innerBarb.y + way * step.y};
  }

  Point centre_;
  Point foot_;       ///< of the head, in the middle of the ring
  double head_ = 0;  ///< half its width
};

}  // namespace

void curvedRightArrow(Form& form) { backAbove(form, true); }
void curvedLeftArrow(Form& form) {
  drawLying(form, Lie::mirrored, [](Form& right) { frontBelow(right, true); });
}
void curvedDownArrow(Form& form) {
  drawLying(form, Lie::transposed, [](Form& right) { backAbove(right, false); });
}
void curvedUpArrow(Form& form) {
  drawLying(form, Lie::up, [](Form& right) { frontBelow(right, false); });
}

void circularArrow(Form& form) {
  Ring ring(form);
  ring.setTip(pin(0, form.angle(1), ring.farthestTip()));
  ring.outer(form, ring.start, positive(ring.directionTo(ring.outerEnd) - ring.start));
  ring.headInward(form);
  const double from = ring.directionTo(ring.innerEnd);
  ring.inner(form, from, -positive(from - ring.start));
  form.close();
}

void leftCircularArrow(Form& form) {
  Ring ring(form);
  ring.setTip(-pin(0, std::abs(form.angle(1)), ring.farthestTip()));
  const double to = ring.directionTo(ring.innerEnd), from = ring.directionTo(ring.outerEnd);
  ring.inner(form, ring.start, -positive(ring.start - to));
  ring.headOutward(form);
  ring.outer(form, from, positive(ring.start - from));
  form.close();
}

/// The second head is as far behind the start as the first is ahead of the end.
void leftRightCircularArrow(Form& form) {
  Ring ring(form);
  const double ahead = pin(0, form.angle(1), ring.farthestTip());
  ring.setTip(ahead);
  const double outerEnd = ring.directionTo(ring.outerEnd), innerEnd = ring.directionTo(ring.innerEnd);
  const double outerStart = positive(ring.start - positive(outerEnd - ring.end));
  const double innerStart = ring.start + positive(ring.end - innerEnd);
  const Point foot = ring.inMiddle(ring.start), tip = ring.inMiddle(ring.start - ahead);
  const double size = ring.headSize();
  form.moveTo(tip.x, tip.y);
  if (ring.wide) Ring::line(form, onEllipse(foot, size, size, ring.start - ahead));
  ring.outer(form, outerStart, positive(outerEnd - outerStart));
  ring.headInward(form);
  ring.inner(form, innerEnd, -positive(innerEnd - innerStart));
  if (ring.wide) Ring::line(form, onEllipse(foot, size, size, ring.start - ahead + 180));
  form.close();
}

}  // namespace vellumark::deck::forms
