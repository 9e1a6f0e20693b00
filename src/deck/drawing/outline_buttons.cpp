// Action buttons: a box with a sign in the middle.

#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {
namespace {

/// A pen on the square that the sign stands in, which has so many cells on each side.
class Sign {
 public:
  Sign(Form& form, double cells)
      : form_(form),
        cell_(form.side * 0.75 / cells),
        left_(form.cx - form.side * 0.375),
        top_(form.cy - form.side * 0.375) {}

  Sign& moveTo(double x, double y) { return placed(&Form::moveTo, x, y); }
  Sign& lineTo(double x, double y) { return placed(&Form::lineTo, x, y); }
  Sign& arc(double radiusX, double radiusY, double start, double sweep) {
    form_.arc(radiusX * cell_, radiusY * cell_, start, sweep);
    return *this;
  }
  Sign& circle(double x, double y, double radius) {
    form_.circle({left_ + x * cell_, top_ + y * cell_}, radius * cell_);
    return *this;
  }
  Sign& polyline(Form::Points points) {
    bool first = true;
    for (const Form::Point& point : points) {
      first ? moveTo(point.x, point.y) : lineTo(point.x, point.y);
      first = false;
    }
    return *this;
  }
  Sign& polygon(Form::Points points) { return polyline(points).close(); }
  Sign& close() {
    form_.close();
    return *this;
  }

 private:
  Sign& placed(Form& (Form::*step)(double, double), double x, double y) {
    (form_.*step)(left_ + x * cell_, top_ + y * cell_);
    return *this;
  }

  Form& form_;
  double cell_, left_, top_;
};

/// The box has a hole where the sign is; `shade` fills that, and `lines` goes around it.
void button(Form& form, Form::Draw hole, Form::Draw shade, Form::Draw lines) {
  hole(form.area().frame());
  shade(form);
  lines(form.lines());
  form.lines().frame();
}

/// The usual sign is one area.
template <Form::Draw sign>
void button(Form& form) {
  button(
      form, sign, [](Form& f) { sign(f.area(PathFill::darken)); }, sign);
}

void back(Form& form) { Sign(form, 2).polygon({{0, 1}, {2, 0}, {2, 2}}); }
void forward(Form& form) { Sign(form, 2).polygon({{2, 1}, {0, 0}, {0, 2}}); }
void beginning(Form& form) {
  Sign(form, 8).polygon({{2, 4}, {8, 0}, {8, 8}}).polygon({{0, 0}, {1, 0}, {1, 8}, {0, 8}});
}
void end(Form& form) {
  Sign(form, 8).polygon({{6, 4}, {0, 0}, {0, 8}}).polygon({{7, 0}, {8, 0}, {8, 8}, {7, 8}});
}

void questionMark(Form& form) {
  Sign sign(form, 28);
  sign.moveTo(6, 8).arc(8, 8, 180, 180).arc(4, 6, 0, 90).arc(2, 3, 270, -90).lineTo(16, 21).lineTo(12, 21);
  sign.lineTo(12, 17).arc(4, 6, 180, 90).arc(2, 3, 90, -90).arc(4, 4, 0, -180).close().circle(14, 25, 3);
}

void disc(Form& form) { Sign(form, 2).circle(1, 1, 1); }
void letterI(Form& form) {
  Sign(form, 32).circle(16, 4, 3).polygon(
      {{10, 10}, {19, 10}, {19, 26}, {22, 26}, {22, 28}, {10, 28}, {10, 26}, {13, 26}, {13, 12}, {10, 12}});
}
void letterInDisc(Form& form) {
  disc(form);
  letterI(form);
}

void turnBack(Form& form) {
  Sign sign(form, 8);
  sign.polyline({{8, 2}, {6, 0}, {4, 2}, {5, 2}, {5, 5}}).arc(1, 1, 0, 90).lineTo(3, 6).arc(1, 1, 90, 90);
  sign.lineTo(2, 2).lineTo(0, 2).lineTo(0, 5).arc(3, 3, 180, -90).lineTo(4, 8).arc(3, 3, 90, -90);
  sign.lineTo(7, 2).close();
}

void camera(Form& form) {
  Sign(form, 100).polygon({{0, 24.444},
                           {0, 44.236},
                           {6.736, 44.236},
                           {8.819, 41.977},
                           {10.764, 41.977},
                           {10.764, 72.185},
                           {78.75, 72.185},
                           {78.75, 61.769},
                           {89.514, 61.769},
                           {95.347, 67.5},
                           {100, 67.5},
                           {100, 30.694},
                           {95.347, 30.694},
                           {91.319, 34.685},
                           {78.75, 34.685},
                           {78.75, 30.694},
                           {74.792, 26.528},
                           {8.819, 26.528},
                           {6.736, 24.444}});
}

void loudspeaker(Form& form) {
  Sign(form, 16).polygon({{0, 5}, {0, 11}, {5, 11}, {10, 16}, {10, 0}, {5, 5}});
}
void loudspeakerWithSound(Form& form) {
  loudspeaker(form);
  Sign(form, 16).polyline({{12, 5}, {16, 2}}).polyline({{12, 8}, {16, 8}}).polyline({{12, 11}, {16, 14}});
}

void sheet(Form& form) { Sign(form, 8).polygon({{1, 0}, {5, 0}, {7, 2}, {7, 8}, {1, 8}}); }
void sheetShades(Form& form) {
  Sign(form.area(PathFill::darkenLess), 8).polygon({{1, 0}, {5, 0}, {5, 2}, {7, 2}, {7, 8}, {1, 8}});
  Sign(form.area(PathFill::darken), 8).polygon({{5, 0}, {5, 2}, {7, 2}});
}
void sheetLines(Form& form) {
  sheet(form);
  Sign(form, 8).polyline({{7, 2}, {5, 2}, {5, 0}});
}

void house(Form& form) {
  Sign(form, 16).polygon(
      {{8, 0}, {0, 8}, {2, 8}, {2, 16}, {14, 16}, {14, 8}, {16, 8}, {13, 5}, {13, 1}, {11, 1}, {11, 3}});
}
void houseShades(Form& form) {
  Sign chimneyAndWalls(form.area(PathFill::darkenLess), 16);
  chimneyAndWalls.polygon({{13, 5}, {13, 1}, {11, 1}, {11, 3}});
  chimneyAndWalls.polygon({{2, 8}, {2, 16}, {7, 16}, {7, 12}, {9, 12}, {9, 16}, {14, 16}, {14, 8}});
  Sign roofAndDoor(form.area(PathFill::darken), 16);
  roofAndDoor.polygon({{8, 0}, {0, 8}, {16, 8}}).polygon({{7, 12}, {9, 12}, {9, 16}, {7, 16}});
}
void houseLines(Form& form) {
  house(form);
  Sign sign(form, 16);
  sign.polyline({{11, 3}, {13, 5}}).polyline({{14, 8}, {2, 8}});
  sign.polyline({{7, 16}, {7, 12}, {9, 12}, {9, 16}});
}

}  // namespace

void actionButtonBackPrevious(Form& form) { button<back>(form); }
void actionButtonBeginning(Form& form) { button<beginning>(form); }
void actionButtonEnd(Form& form) { button<end>(form); }
void actionButtonForwardNext(Form& form) { button<forward>(form); }
void actionButtonHelp(Form& form) { button<questionMark>(form); }
void actionButtonMovie(Form& form) { button<camera>(form); }
void actionButtonReturn(Form& form) { button<turnBack>(form); }
void actionButtonDocument(Form& form) { button(form, sheet, sheetShades, sheetLines); }
void actionButtonHome(Form& form) { button(form, house, houseShades, houseLines); }
void actionButtonInformation(Form& form) {
  const auto shades = [](Form& f) {
    letterInDisc(f.area(PathFill::darken));
    letterI(f.area(PathFill::lighten));
  };
  button(form, disc, shades, letterInDisc);
}
void actionButtonSound(Form& form) {
  button(
      form, loudspeaker, [](Form& f) { loudspeaker(f.area(PathFill::darken)); }, loudspeakerWithSound);
}

}  // namespace vellumark::deck::forms
