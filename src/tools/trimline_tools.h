#pragma once
// The object that holds the commands on shapes, text and slides.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/shape.h"
#include "host/window.h"
#include "ui/form.h"

namespace vellumark::tools {

class MarginInput;

/// The upright visual box of a shape at any rotation, in points on the slide.
struct RotatedMetrics {
  double Left = 0;
  double Top = 0;
  double Height = 0;
  double Width = 0;
};

/// The commands of the Trimline Tools. A command takes no argument and works on the active window's
/// selection. The master of a selection is its last shape; all others are followers, treated in the order of
/// selecting.
class TrimlineTools {
 public:
  // Measuring and placing by what the eye sees. The visual box has the frame's centre; its size is the
  // absolute value of the sum of both sides' shares, so that between 90 and 180 and between 270 and 360
  // degrees it is smaller than the outline.
  double getLeft(const host::Shape& shape);
  double getTop(const host::Shape& shape);
  double getWidth(const host::Shape& shape);
  double getHeight(const host::Shape& shape);
  void setLeft(const host::Shape& shape, double x);
  void setTop(const host::Shape& shape, double y);
  /// Only for shapes turned by exactly 0, 90, 180 or 270 degrees; others bring a message and stay as they
  /// are.
  void setWidth(const host::Shape& shape, double width);
  void setHeight(const host::Shape& shape, double height);

  // Followers to an edge or centre of the master.
  void alignLefts();
  void alignCenters();
  void alignRights();
  void alignTops();
  void alignMiddles();
  void alignBottoms();
  void alignVerticallyInGoldenSection();

  // Followers to the master's size.
  void alignWidths();
  void alignHeights();
  void alignWidthsAndHeights();

  // One edge to the master's same edge; the opposite edge stays.
  void stretchLeft();
  void stretchRight();
  void stretchTop();
  void stretchBottom();

  // Followers beside the master.
  void moveLeftToMasterRight();
  void moveRightToMasterLeft();
  void moveTopToMasterBottom();
  void moveBottomToMasterTop();

  // One edge to the master's opposite edge; the follower's other edge stays.
  void stretchLeftToMasterRight();
  void stretchRightToMasterLeft();
  void stretchTopToMasterBottom();
  void stretchBottomToMasterTop();

  // Edge to edge, in the order of selecting.
  void stackHorizontally();
  void stackVertically();

  // Process arrows (pentagons and chevrons).
  void alignAngles();           ///< the master's tip for all followers
  void processChain();          ///< a closed chain, each tip in the next arrow's notch
  void adjustPentagonHeader();  ///< fits a freeform header box to the upper part of a pentagon

  // Forms of shapes.
  void SwitchObjects();              ///< asks how, then swaps the first two shapes
  void roundedRectangles();          ///< the master's radius for all followers
  void roundedRectanglesNumeric();   ///< asks for a radius and gives it to all
  void beautifyBlockArrow();         ///< asks for head angle and shaft ratio
  void tweakAutoShapeAdjustments();  ///< asks for the raw values of the handles

  // Text of the selected shapes, of groups and tables among them too.
  void adjustAutoShapeToText();  ///< fits the shapes to their text, or no longer; hosts before the ribbon
  void wrapText();               ///< wraps the text, or no longer; hosts before the ribbon
  void setMargins();             ///< asks for margins
  void beautifyIndents();
  void addIndent();
  void removeIndent();
  void setLanguage(std::int32_t id);  ///< the proofing language, a locale id
  void countWords();                  ///< shows the text statistics
  /// Sets the ruler of a frame so that each level stands one font size to the right of the level before.
  void beautify(const host::TextFrame& frame);

  // Slides and the presentation.
  void hideShapes();
  void unhideShapes();          ///< all of the selected slides, or of the slide in view
  void openContainingFolder();  ///< shows the presentation's file in its folder
  void saveSelectedSlides();    ///< as a presentation of their own, under a name that is asked for
  void emailSelectedSlides();   ///< the same as attachment of a mail
  void pasteOnSelectedSlides();
  void removeAllSpeechNotes();
  void createMotionPath();  ///< moves the first selected shape to the second
  /// Puts the shapes of slide `index` (from 1) of the style's template on all masters, in the place of those
  /// that stand there from the last time.
  void insertCopyright(std::int32_t index);
  void setBlackWhiteMode();

  // Colours.
  void pickColorFromScreen();  ///< adds colours of the screen to the presentation's own
  void resetCustomColors();    ///< the presentation's own colours become those of the settings

  // The agenda.
  void showAgendaWizard();
  void agendaUpdatePagenumbers();  ///< makes all agenda slides anew
  void disconnectAgendaSlides();   ///< turns the selected ones into ordinary slides

  // Commands that only open something.
  void tutorialVideos();
  void gettingStarted();
  void FAQ();
  void homepage();
  void recommend();
  void feedback();
  void reference();
  void startUpdate();

  /// Calls a command by its name, in any case, as the parameter of a toolbar's entry has it: 438 for a name
  /// that is none, 450 where an argument is missing, or handed to a command that takes none.
  void callMethod(std::string_view name, const std::optional<std::string>& argument = {});
  /// Whether callMethod() knows the name.
  static bool hasMethod(std::string_view name);

 private:
  /// Writes the selected slides alone to a temporary presentation, which goes when the add-in is
  /// disconnected; its path.
  std::string extractSelectedSlides();

  /// The radius in points of a rounded rectangle's corners.
  static void setRadius(const host::Shape& shape, double radius);
  RotatedMetrics getRotatedMetrics(const host::Shape& shape);

  /// Applies an action ("beautifyIndents", "addIndent", "removeIndent", "setMargins", "setLanguage") to every
  /// text frame in a selection, in shapes, or in a shape. `value` is the language.
  void iterate(const host::Handle& what, const std::string& action, std::optional<std::int32_t> value = {});
  void iterateSelection(const host::Selection& selection, const std::string& action,
                        std::optional<std::int32_t> value);
  void iterateTable(const host::Table& table, const std::string& action, std::optional<std::int32_t> value);
  void iterateSelected(const std::string& action);
  void indentLevel(const host::TextFrame& frame, int direction);
  void margins(const host::TextFrame& frame);
  void setLang(const host::TextFrame& frame, std::int32_t id);

  /// Which edge is meant. `alignSizes` has modes of its own.
  enum class Mode {
    left = 0,
    center = 1,
    right = 2,
    top = 3,
    middle = 4,
    bottom = 5,
    width = 6,
    height = 7,
    widthAndHeight = 8
  };
  void align(Mode mode);
  void alignSizes(Mode mode);
  void stretch(Mode mode);
  void moveToMaster(Mode mode);
  void stretchToMaster(Mode mode);
  void stretchTo(Mode mode, Mode target);
  static double growth(Mode mode, Mode target, const RotatedMetrics& s, const RotatedMetrics& m);
  static Mode opposite(Mode mode);
  /// Gives the visual box a new size and place; a size of zero or less leaves the shape untouched.
  void spanHorizontally(const host::Shape& shape, double left, double width);
  void spanVertically(const host::Shape& shape, double top, double height);

  const MarginInput* marginInput_ = nullptr;  ///< while its margins are applied
  std::unique_ptr<ui::Form> wordCount_;       ///< the statistics shown last
};

}  // namespace vellumark::tools
