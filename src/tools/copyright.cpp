// Copyright notices on the masters, from a template of the current style.

#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "core/config.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/message.h"
#include "core/slide_in_view.h"
#include "core/template_paths.h"
#include "platform/ansi.h"
#include "platform/paths.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::message;

constexpr const char* copyrightTag = "zorp_copyright";

enum class Masters { slide, title };

/// Texts and names of shapes that give way to a notice: the lines of a file but for comments.
std::vector<std::string> entriesToRemove() {
  const std::string path = core::globals().configFolder + "copyright_remove.txt";
  std::vector<std::string> entries;
  if (!platform::fileExists(path)) return entries;
  const std::string text = platform::fromAnsiOrUtf8(platform::readFile(path));
  for (const std::string& line : base::split(base::replaceAll(text, "\r", ""), '\n')) {
    std::string entry = base::trim(line);
    if (!entry.empty() && entry.front() != '#') entries.push_back(std::move(entry));
  }
  return entries;
}

bool givesWay(const host::Shape& shape, const std::vector<std::string>& entries) {
  if (shape.Tags().Item(copyrightTag) == "1") return true;
  return std::ranges::any_of(entries, [&](const std::string& entry) {
    const bool text = shape.HasTextFrame() != 0 && shape.TextFrame().HasText() != 0 &&
                      base::trim(shape.TextFrame().TextRange().Text()) == entry;
    return text || shape.Name() == entry;
  });
}

void removeOld(const host::Shapes& shapes, const std::vector<std::string>& entries) {
  for (int i = shapes.Count(); i >= 1; --i) {
    const host::Shape shape = shapes.Item(i);
    if (givesWay(shape, entries)) shape.Delete();
  }
}

/// Exchanges the notices on one kind of masters; false where the style has no template for it.
bool exchange(const std::string& file, std::int32_t index, Masters masters,
              const std::vector<std::string>& entries) {
  const host::Application& application = core::globals().powerPointApp;
  const std::string path = core::ribbonTemplatePath(core::globals().currentStyle, file);
  if (!platform::fileExists(path)) {
    message("The template file '" + platform::toSystem(path) +
                "' could not be found.\r\nPlease check your installation and contact us at " +
                std::string(core::supportEmail) + " if the problem persists.",
            ui::Icon::critical);
    return false;
  }
  const host::Presentation presentation = application.ActivePresentation();
  const host::Presentation notices = application.Presentations().Open(path, true, false, false);
  const host::Shapes shapes = notices.Slides().Item(index).Shapes();
  const bool any = shapes.Count() > 0;
  if (any) {
    const host::ShapeRange range = shapes.Range();
    range.Tags().Add(copyrightTag, "1");
    range.Copy();
  }
  const host::Designs designs = presentation.Designs();
  const int count = designs.Count();
  for (int i = 1; i <= count; ++i) {
    const host::Design design = designs.Item(i);
    if (masters == Masters::title && design.HasTitleMaster() == host::msoFalse) continue;
    const host::ShapeSheet master = masters == Masters::title ? design.TitleMaster() : design.SlideMaster();
    removeOld(master.Shapes(), entries);
    if (any) master.Shapes().Paste();
  }
  notices.Saved(true);
  notices.Close();
  return true;
}

}  // namespace

void TrimlineTools::insertCopyright(std::int32_t index) {
  core::trap("TrimlineTools, insertCopyright", [&] {
    if (core::globals().currentStyle.empty()) {
      message("Please select a style first.", ui::Icon::information);
      return;
    }
    if (!core::requireSlideInView("inserting a copyright notice")) return;
    const std::vector<std::string> entries = entriesToRemove();
    if (!exchange("copyright_slide.ppt", index, Masters::slide, entries)) return;
    if (core::isHostVersion(host::toolbarHosts)) {
      exchange("copyright_title.ppt", index, Masters::title, entries);
      return;
    }
    // Makes the host draw the masters anew.
    const host::View view = core::globals().powerPointApp.ActiveWindow().View();
    view.Zoom(view.Zoom() - 1);
    view.Zoom(view.Zoom() + 1);
  });
}

}  // namespace vellumark::tools
