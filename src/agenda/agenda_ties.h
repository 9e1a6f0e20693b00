#pragma once
// What ties slides and shapes to the agenda: tags, which stay with them wherever the user moves them.

#include <string>
#include <unordered_map>

#include "host/presentation.h"

namespace vellumark::agenda {

namespace tags {
// Of the presentation.
inline constexpr const char* document = "zorp_agendaWizardXML";
inline constexpr const char* style = "zorp_agendaWizardStyle";
inline constexpr const char* slideOrder = "zorp_slideOrder";
// Of slides and shapes: what they are to the agenda.
inline constexpr const char* kind = "zorp_agendaWizard";
inline constexpr const char* slideID = "zorp_slideID";
// Of shapes.
inline constexpr const char* content = "zorp_agendaWizard_content";
inline constexpr const char* properties = "zorp_agendaWizard_properties";
}  // namespace tags

namespace kinds {
inline constexpr const char* agendaSlide = "agendaSlide";
inline constexpr const char* title = "title";
inline constexpr const char* subtitle = "subtitle";
inline constexpr const char* box = "box";
inline constexpr const char* bar = "bar";
}  // namespace kinds

bool isAgendaSlide(const host::Slide& slide);
/// The slide's part of the slide order, which is that of all slides in order: "256;258;257;".
std::string orderEntry(const host::Slide& slide);

/// What an item's slideID names, or nothing: from 36 characters up it is the GUID that the slide carries in a
/// tag, below that the host's own number of the slide.
host::Slide findSlide(const host::Presentation& presentation, const std::string& slideID);

/// The page numbers of a presentation's slides as they are at one moment, looked up by what findSlide()
/// takes.
class PageNumbers {
 public:
  explicit PageNumbers(const host::Presentation& presentation);
  /// Empty where there is no such slide.
  std::string of(const std::string& slideID) const;

 private:
  host::Presentation presentation_;
  std::unordered_map<std::string, int> numbers_;  ///< by GUID, of several slides the first
};

/// Remembers a generated text at its shape, behind a "/" that keeps the tag from being empty.
void saveShapeContent(const host::Shape& shape, const std::string& text);
/// Remembers where a shape stands and how large it is.
void saveShapeProperties(const host::Shape& shape);
/// Whether the shape still stands as remembered, or nothing is remembered.
bool checkShapeProperties(const host::Shape& shape);

}  // namespace vellumark::agenda
