#pragma once
// Presentations, their slides and page setup.

#include <string>

#include "host/constants.h"
#include "host/handle.h"
#include "host/shape.h"
#include "host/tags.h"
#include "host/time_line.h"

namespace vellumark::host {

/// The background of a slide.
class Background : public Handle {
 public:
  using Handle::Handle;
  int BlackWhiteMode() const { return get<int>(member::BlackWhiteMode); }  ///< MsoBlackWhiteMode, 1 to 10
  void BlackWhiteMode(int mode) const { put(member::BlackWhiteMode, mode); }
};

/// A master or a notes page: what carries shapes without being a slide.
class ShapeSheet : public Handle {
 public:
  using Handle::Handle;
  host::Shapes Shapes() const { return get<host::Shapes>(member::Shapes); }
};

/// One colour of a scheme.
class RGBColor : public Handle {
 public:
  using Handle::Handle;
  int RGB() const { return get<int>(member::RGB); }  ///< red in the low byte
};

/// The eight colours that a slide is drawn with.
class ColorScheme : public Handle {
 public:
  using Handle::Handle;
  RGBColor Colors(PpColorSchemeIndex place) const { return call<RGBColor>(member::Colors, place); }
};

class Slide : public Handle {
 public:
  using Handle::Handle;
  host::Background Background() const { return get<host::Background>(member::Background); }
  host::ColorScheme ColorScheme() const { return get<host::ColorScheme>(member::ColorScheme); }
  /// Made where the slide has none yet.
  ShapeSheet NotesPage() const { return get<ShapeSheet>(member::NotesPage); }
  host::TimeLine TimeLine() const { return get<host::TimeLine>(member::TimeLine); }
  host::Shapes Shapes() const { return get<host::Shapes>(member::Shapes); }
  int SlideID() const { return get<int>(member::SlideID); }          ///< stable for the life of the slide
  int SlideIndex() const { return get<int>(member::SlideIndex); }    ///< position in the presentation, from 1
  int SlideNumber() const { return get<int>(member::SlideNumber); }  ///< the number printed on it
  std::string Name() const { return get<std::string>(member::Name); }
  void Name(const std::string& name) const { put(member::Name, name); }
  int Layout() const { return get<int>(member::Layout); }  ///< PpSlideLayout
  host::Tags Tags() const { return get<host::Tags>(member::Tags); }
  void Copy() const { call(member::Copy); }
  void Delete() const { call(member::Delete); }
  void Select() const { call(member::Select); }
};

/// Slides of a selection or a range. Members read the common value; writes go to all.
class SlideRange : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  Slide Item(int index) const { return get<Slide>(member::Item, index); }
  host::Shapes Shapes() const { return get<host::Shapes>(member::Shapes); }  ///< of a range of one slide
  host::ColorScheme ColorScheme() const { return get<host::ColorScheme>(member::ColorScheme); }
  ShapeSheet NotesPage() const { return get<ShapeSheet>(member::NotesPage); }  ///< of a range of one slide
  void Copy() const { call(member::Copy); }
  int SlideID() const { return get<int>(member::SlideID); }
  int SlideIndex() const { return get<int>(member::SlideIndex); }
  host::Tags Tags() const { return get<host::Tags>(member::Tags); }
  void Delete() const { call(member::Delete); }
  void Select() const { call(member::Select); }
};

class Slides : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  Slide Item(int index) const { return get<Slide>(member::Item, index); }
  /// Raises where no slide has that id.
  Slide FindBySlideID(int id) const { return call<Slide>(member::FindBySlideID, id); }
  Slide Add(int index, PpSlideLayout layout) const { return call<Slide>(member::Add, index, layout); }
  /// Inserts slides `first` to `last` of a file behind slide `index`; the number of slides inserted.
  int InsertFromFile(const std::string& file, int index, int first, int last) const {
    return call<int>(member::InsertFromFile, file, index, first, last);
  }
  /// The clipboard's slides, inserted before slide `index`, at the end for -1.
  SlideRange Paste(int index = -1) const { return call<SlideRange>(member::Paste, index); }
  SlideRange Range(int index) const { return call<SlideRange>(member::Range, index); }
  /// All slides.
  SlideRange Range() const { return call<SlideRange>(member::Range); }
};

class Design : public Handle {
 public:
  using Handle::Handle;
  ShapeSheet SlideMaster() const { return get<ShapeSheet>(member::SlideMaster); }
  int HasTitleMaster() const { return get<int>(member::HasTitleMaster); }  ///< tri-state
  /// Raises where there is none.
  ShapeSheet TitleMaster() const { return get<ShapeSheet>(member::TitleMaster); }
};

class Designs : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  Design Item(int index) const { return get<Design>(member::Item, index); }
};

class PageSetup : public Handle {
 public:
  using Handle::Handle;
  float SlideWidth() const { return get<float>(member::SlideWidth); }    ///< points
  float SlideHeight() const { return get<float>(member::SlideHeight); }  ///< points
};

/// The colours that the user mixed, the oldest first, eight at most. Adding one that is there changes
/// nothing; a ninth one drops the oldest.
class ExtraColors : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  int Item(int index) const { return get<int>(member::Item, index); }
  void Add(int rgb) const { call(member::Add, rgb); }  ///< red in the low byte
  void Clear() const { call(member::Clear); }
};

class Presentation : public Handle {
 public:
  using Handle::Handle;
  host::Slides Slides() const { return get<host::Slides>(member::Slides); }
  host::Designs Designs() const { return get<host::Designs>(member::Designs); }
  host::PageSetup PageSetup() const { return get<host::PageSetup>(member::PageSetup); }
  host::Tags Tags() const { return get<host::Tags>(member::Tags); }
  host::ExtraColors ExtraColors() const { return get<host::ExtraColors>(member::ExtraColors); }
  std::string Name() const { return get<std::string>(member::Name); }  ///< file name with extension
  std::string FullName() const {
    return get<std::string>(member::FullName);
  }  ///< path and name; the name if never saved
  std::string Path() const { return get<std::string>(member::Path); }  ///< folder; empty if never saved
  int ReadOnly() const { return get<int>(member::ReadOnly); }          ///< tri-state
  int Saved() const { return get<int>(member::Saved); }                ///< tri-state
  void Saved(bool saved) const { putTriState(member::Saved, saved); }
  void Save() const { call(member::Save); }
  void SaveAs(const std::string& path) const { call(member::SaveAs, path); }
  void SaveAs(const std::string& path, PpSaveAsFileType type, MsoTriState embedFonts) const {
    call(member::SaveAs, path, type, embedFonts);
  }
  void SaveCopyAs(const std::string& path) const { call(member::SaveCopyAs, path); }
  /// The host decides about the fonts where `embedFonts` is mixed.
  void SaveCopyAs(const std::string& path, PpSaveAsFileType type, MsoTriState embedFonts) const {
    call(member::SaveCopyAs, path, type, embedFonts);
  }
  void Close() const { call(member::Close); }
};

class Presentations : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  Presentation Item(int index) const { return get<Presentation>(member::Item, index); }
  /// Without a window the presentation is invisible and never the active one.
  Presentation Open(const std::string& path, bool readOnly, bool untitled, bool withWindow) const {
    return call<Presentation>(member::Open, path, triState(readOnly), triState(untitled),
                              triState(withWindow));
  }
  Presentation Add(bool withWindow = true) const {
    return call<Presentation>(member::Add, triState(withWindow));
  }
};

}  // namespace vellumark::host
