// Commands by name.

#include <algorithm>

#include "base/conversions.h"
#include "base/error.h"
#include "base/text.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

struct Method {
  std::string_view name;
  void (TrimlineTools::*command)() = nullptr;
  void (TrimlineTools::*numbered)(std::int32_t) = nullptr;  ///< of a command that takes a number
};

#define VELLUMARK_METHOD(name) \
  { #name, &TrimlineTools::name, nullptr }
#define VELLUMARK_NUMBERED_METHOD(name) \
  { #name, nullptr, &TrimlineTools::name }
constexpr Method methods[] = {
    VELLUMARK_METHOD(alignLefts),
    VELLUMARK_METHOD(alignCenters),
    VELLUMARK_METHOD(alignRights),
    VELLUMARK_METHOD(alignTops),
    VELLUMARK_METHOD(alignMiddles),
    VELLUMARK_METHOD(alignBottoms),
    VELLUMARK_METHOD(alignVerticallyInGoldenSection),
    VELLUMARK_METHOD(alignWidths),
    VELLUMARK_METHOD(alignHeights),
    VELLUMARK_METHOD(alignWidthsAndHeights),
    VELLUMARK_METHOD(stretchLeft),
    VELLUMARK_METHOD(stretchRight),
    VELLUMARK_METHOD(stretchTop),
    VELLUMARK_METHOD(stretchBottom),
    VELLUMARK_METHOD(moveLeftToMasterRight),
    VELLUMARK_METHOD(moveRightToMasterLeft),
    VELLUMARK_METHOD(moveTopToMasterBottom),
    VELLUMARK_METHOD(moveBottomToMasterTop),
    VELLUMARK_METHOD(stretchLeftToMasterRight),
    VELLUMARK_METHOD(stretchRightToMasterLeft),
    VELLUMARK_METHOD(stretchTopToMasterBottom),
    VELLUMARK_METHOD(stretchBottomToMasterTop),
    VELLUMARK_METHOD(stackHorizontally),
    VELLUMARK_METHOD(stackVertically),
    VELLUMARK_METHOD(alignAngles),
    VELLUMARK_METHOD(processChain),
    VELLUMARK_METHOD(adjustPentagonHeader),
    VELLUMARK_METHOD(SwitchObjects),
    VELLUMARK_METHOD(roundedRectangles),
    VELLUMARK_METHOD(roundedRectanglesNumeric),
    VELLUMARK_METHOD(beautifyBlockArrow),
    VELLUMARK_METHOD(tweakAutoShapeAdjustments),
    VELLUMARK_METHOD(adjustAutoShapeToText),
    VELLUMARK_METHOD(wrapText),
    VELLUMARK_METHOD(setMargins),
    VELLUMARK_METHOD(beautifyIndents),
    VELLUMARK_METHOD(addIndent),
    VELLUMARK_METHOD(removeIndent),
    VELLUMARK_NUMBERED_METHOD(setLanguage),
    VELLUMARK_METHOD(countWords),
    VELLUMARK_METHOD(hideShapes),
    VELLUMARK_METHOD(unhideShapes),
    VELLUMARK_METHOD(openContainingFolder),
    VELLUMARK_METHOD(showAgendaWizard),
    VELLUMARK_METHOD(agendaUpdatePagenumbers),
    VELLUMARK_METHOD(disconnectAgendaSlides),
    VELLUMARK_METHOD(saveSelectedSlides),
    VELLUMARK_METHOD(emailSelectedSlides),
    VELLUMARK_METHOD(pasteOnSelectedSlides),
    VELLUMARK_METHOD(removeAllSpeechNotes),
    VELLUMARK_METHOD(createMotionPath),
    VELLUMARK_NUMBERED_METHOD(insertCopyright),
    VELLUMARK_METHOD(setBlackWhiteMode),
    VELLUMARK_METHOD(pickColorFromScreen),
    VELLUMARK_METHOD(resetCustomColors),
    VELLUMARK_METHOD(tutorialVideos),
    VELLUMARK_METHOD(gettingStarted),
    VELLUMARK_METHOD(FAQ),
    VELLUMARK_METHOD(homepage),
    VELLUMARK_METHOD(recommend),
    VELLUMARK_METHOD(feedback),
    VELLUMARK_METHOD(reference),
    VELLUMARK_METHOD(startUpdate),
};
#undef VELLUMARK_METHOD
#undef VELLUMARK_NUMBERED_METHOD

const Method* findMethod(std::string_view name) {
  const auto found = std::ranges::find_if(
      methods, [&](const Method& method) { return base::equalsIgnoreCase(method.name, name); });
  return found == std::end(methods) ? nullptr : found;
}

}  // namespace

bool TrimlineTools::hasMethod(std::string_view name) { return findMethod(name) != nullptr; }

void TrimlineTools::callMethod(std::string_view name, const std::optional<std::string>& argument) {
  const Method* method = findMethod(name);
  if (!method) base::raise(base::errors::noSuchMember);
  if (argument.has_value() != (method->numbered != nullptr)) base::raise(base::errors::wrongArgumentCount);
  if (argument) {
    (this->*method->numbered)(base::toInt32(*argument));
  } else {
    (this->*method->command)();
  }
}

}  // namespace vellumark::tools
