#pragma once
// One open presentation: its package, where it came from, its slides in order, and the sheets that carry
// shapes.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "deck/package/package.h"
#include "platform/file_state.h"

namespace vellumark::deck {

class Document;
using DocumentRef = std::shared_ptr<Document>;

/// A part that carries shapes: slide, layout, master, notes page.
struct Sheet {
  DocumentRef document;
  PartRef part;

  explicit operator bool() const { return part != nullptr; }
  friend bool operator==(const Sheet& a, const Sheet& b) { return a.part == b.part; }

  /// p:spTree of the part; FormatError where it has none.
  pugi::xml_node shapeTree() const;
  /// The sheet that this one inherits from: the layout of a slide, the master of a layout, the notes master
  /// of a notes page; nothing for a master.
  Sheet parent() const;
  /// Marks part and presentation as changed.
  void touch(Change change = Change::anything) const;
};

/// One shape: its sheet and its element (p:sp, p:pic, p:graphicFrame, p:cxnSp, p:grpSp, p:contentPart).
struct ShapeKey {
  Sheet sheet;
  pugi::xml_node node;

  friend bool operator==(const ShapeKey& a, const ShapeKey& b) { return a.node == b.node; }
  /// Whether the shape was deleted, or its slide or presentation is gone.
  bool deleted() const;
};

/// A slide in the presentation's order.
struct SlideEntry {
  std::int32_t id;             ///< p:sldId/@id
  std::string relationshipId;  ///< p:sldId/@r:id
  pugi::xml_node node;         ///< the p:sldId
};

class Document : public std::enable_shared_from_this<Document> {
 public:
  /// Opens a file. Reads presentation.xml and relationships only. FormatError where it is broken.
  static DocumentRef open(const std::string& path, bool readOnly, bool untitled);
  /// An empty presentation without masters, never to be saved, in which copies are kept.
  static DocumentRef scratch(bool strict);
  /// A new presentation with one master and the usual layouts, named "Presentation1" and so on.
  static DocumentRef create(int number);

  Package& package() { return *package_; }
  const PartRef& presentationPart() const { return presentation_; }
  const std::string& path() const { return path_; }  ///< whole path; empty where it was never saved
  std::string name() const;
  std::string folder() const;
  bool readOnly() const { return readOnly_; }
  bool saved() const { return saved_; }
  void saved(bool saved) { saved_ = saved; }
  bool closed() const { return closed_; }
  void close();
  void touch(Part& part, Change change = Change::anything);

  void save();
  /// The extension says what kind of file is written: a presentation, a show, a template. As PowerPoint does,
  /// macros are left out of kinds that hold none.
  void saveAs(const std::string& path);
  void saveCopyAs(const std::string& path);

  /// Nodes of a part that referred to these relationships are gone: when the file is written, relationships
  /// that nothing in the part refers to any more go, and parts that only they led to.
  void loosen(const PartRef& part, const std::vector<std::string>& relationships);

  // Slides.
  /// In their order; good until presentation.xml is changed.
  const std::vector<SlideEntry>& slides() const;
  std::size_t slideCount() const;
  /// The sheet of a slide; parses nothing. An error where the id is unknown.
  Sheet slide(std::int32_t id);
  /// The id of a slide's sheet, 0 where it is no slide (a layout, a deleted slide).
  std::int32_t slideId(const Sheet& sheet);
  /// The position of a slide from 0, -1 where there is none.
  int slidePosition(std::int32_t id) const;
  void deleteSlide(std::int32_t id);
  /// Inserts an empty slide on a layout before `position` (from 0), with the layout's placeholders; its id.
  std::int32_t insertSlide(std::size_t position, const Sheet& layout);
  /// Lists a slide's part, which the package has already, before `position` (from 0); its id.
  std::int32_t listSlide(std::size_t position, const PartRef& part);
  /// The first master's layouts, in order.
  std::vector<Sheet> layouts();
  std::vector<Sheet> layoutsOf(const Sheet& master);
  std::vector<Sheet> masters();

  /// The part that the presentation relates to by that type ("notesMaster"); nothing where there is none.
  Sheet related(std::string_view type);
  /// Keeps a draft of the package, known by what it is for, until it is first changed: then `adopt` makes it
  /// part of the file.
  void keepDraft(const std::string& purpose, const PartRef& draft, std::function<void()> adopt);
  /// The draft for that; nothing where there is none, or none any more.
  PartRef draft(const std::string& purpose) const;

  Sheet sheet(PartRef part) { return {shared_from_this(), std::move(part)}; }
  /// Slide size and the like: the p:presentation element.
  pugi::xml_node presentation() const { return presentation_->root(); }
  int firstSlideNumber() const;

 private:
  struct SlideList;
  Document() = default;
  SlideList& slideList() const;
  std::int32_t nextSlideId();
  /// What is put off until the file is written.
  void settle();
  void dropLoose();
  /// Writes the file as one of that content type, which the presentation keeps where it adopts the file.
  void write(const std::string& path, const std::string& type, bool adopt);
  void dropMacros();
  /// Lists a new slide in the section of the slide that it comes before, in the last one where there is none.
  void addToSection(std::int32_t id, std::int32_t before);

  std::unique_ptr<Package> package_;
  PartRef presentation_;
  std::string path_;
  std::optional<platform::FileState> written_;  ///< of the file at that path when it was opened or saved
  std::string newName_;
  bool readOnly_ = false;
  bool saved_ = true;
  bool closed_ = false;
  struct Draft {
    std::string purpose;
    PartRef part;
    std::function<void()> adopt;
  };
  std::vector<Draft> drafts_;
  std::map<PartRef, std::set<std::string>> loose_;  ///< relationships that may be referred to no longer
  std::vector<std::int32_t> told_;                  ///< the slides of which docProps/app.xml tells, by id
  std::int32_t highestSlideId_ = 0;                 ///< ids are never used twice while the file is open
};

}  // namespace vellumark::deck
