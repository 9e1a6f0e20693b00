#pragma once
// A running host with the add-in in it, as a user has it in front of them.

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "add_in.h"
#include "deck/embedded_host.h"
#include "questions.h"
#include "ribbon.h"

namespace vellumark::app {

class Session {
 public:
  /// Starts a host of that version and connects the add-in. On hosts with a ribbon the ribbon is loaded, as
  /// the host does after connecting.
  Session(const std::string& hostVersion, std::unique_ptr<AddIn> addIn);
  /// Closes what is open, without asking, and disconnects the add-in.
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  host::Application application() const { return host_.application(); }
  AddIn& addIn() { return *addIn_; }
  /// Hosts from 12.0 have a ribbon, those before it command bars.
  bool hasRibbon() const { return ribbon_ != nullptr; }
  /// What the ribbon shows of a control; the same until the add-in invalidates it.
  host::Value shown(const std::string& callback, const std::shared_ptr<RibbonControl>& control,
                    std::optional<int> index = {}) {
    return ribbon_->shown(*addIn_, callback, control, index);
  }

  /// Opens a deck in a window. A Failure where it can't be read.
  host::Presentation open(const std::string& path);
  /// The deck that was opened, whatever else a command opens.
  host::Presentation presentation() const { return window_.Presentation(); }

  /// Who answers the host's dialogs for files; without one they are cancelled.
  void answerFiles(deck::FileAnswerer answerer) { host_.state()->fileAnswerer = std::move(answerer); }

  // What a user does in the active window. Each is a Failure where the deck has nothing of the kind.
  void chooseStyle(const std::string& name);
  void goToSlide(std::int32_t slide);
  void showView(std::int32_t type);
  void selectShapes(const std::string& references);
  void selectSlides(const std::string& list);
  void selectText(const std::string& spot);
  void selectCells(const std::string& spots);
  /// Copies shapes of the slide in view to the clipboard.
  void copyShapes(const std::string& references);
  /// Selects these shapes in that order.
  void select(const std::vector<host::Shape>& shapes) { host_.selectShapes(shapes); }

  /// The id of the slide in view; 0 for a master, and where there is none.
  int slideInView() const;
  /// The shapes of the slide or master in view; nothing where there is none.
  host::Shapes shapesInView() const;

  /// What the command changes counts from here on.
  void watchChanges();
  /// Whether the deck was changed since; whether it differs from its file.
  bool changed() const;
  bool differs() const { return differed_ || changed(); }

  /// The faults of the deck's slides, layouts and masters that can't be read.
  std::vector<std::string> damages() const;

  /// Saves the deck over itself, or as `out`. A Failure where it can't be written, or where the add-in
  /// cancels.
  void save(const std::string& out = {});

 private:
  /// The names in the chooser of styles.
  std::vector<std::string> styles() const;
  /// The shapes in view that references mean, each once; `option` named them.
  std::vector<host::Shape> findShapes(const std::string& references, const std::string& option) const;

  deck::EmbeddedHost host_;
  std::unique_ptr<AddIn> addIn_;
  std::shared_ptr<Ribbon> ribbon_;
  host::DocumentWindow window_;  ///< of the deck
  bool differed_ = false;        ///< it had changes already when the watch began
};

/// As Questions::requireWhole(), but where the report is about damage of the deck it is the deck that can't
/// be read.
void requireWhole(const Questions& questions, const Session& session, const std::string& deck,
                  const std::string& name);

}  // namespace vellumark::app
