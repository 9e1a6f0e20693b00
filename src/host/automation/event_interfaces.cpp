#include "host/automation/event_interfaces.h"

#include <algorithm>

namespace vellumark::host::automation {
namespace {

constexpr EventInterface::Event applicationEvents[] = {
    {2001, member::WindowSelectionChange},  {2004, member::PresentationClose},
    {2006, member::PresentationOpen},       {2007, member::NewPresentation},
    {2009, member::WindowActivate},         {2011, member::SlideShowBegin},
    {2014, member::SlideShowEnd},           {2015, member::PresentationPrint},
    {2018, member::PresentationBeforeSave},
};
constexpr EventInterface::Event buttonEvents[] = {{1, member::Click}};
constexpr EventInterface::Event comboBoxEvents[] = {{1, member::Change}};

constexpr EventInterface interfaces[] = {
    {{0x914934C2, 0x5A91, 0x11CF, {0x87, 0x00, 0x00, 0xAA, 0x00, 0x60, 0x26, 0x3B}},
     "Application",
     applicationEvents},
    {{0x000C0351, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}, "CommandBarButton", buttonEvents},
    {{0x000C0354, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}, "CommandBarComboBox", comboBoxEvents},
};

}  // namespace

const EventInterface::Event* EventInterface::find(DISPID number) const {
  const auto found = std::ranges::find(events, number, &Event::number);
  return found == events.end() ? nullptr : &*found;
}

const EventInterface::Event* EventInterface::find(Member name) const {
  const auto found = std::ranges::find(events, name, &Event::name);
  return found == events.end() ? nullptr : &*found;
}

std::span<const EventInterface> eventInterfaces() { return interfaces; }

}  // namespace vellumark::host::automation
