// Command bars of hosts up to 11.0: bars, controls on them, and the events of the controls.

#include <memory>

#include "base/text.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

class ControlsObject;

/// A caption without the marks of its access keys.
std::string plainCaption(const std::string& caption) { return base::replaceAll(caption, "&", ""); }

/// A button, popup or combo box. Its state is its own: nothing of it is stored in a file.
class ControlObject : public ModelObject<ControlObject>, public host::EventSource {
 public:
  static constexpr const char* className = "CommandBarControl";
  static const MemberTable<ControlObject>& members();

  ControlObject(HostRef host, std::int32_t type, std::int32_t id, std::weak_ptr<ControlsObject> owner)
      : ModelObject(std::move(host)), type_(type), id_(id), owner_(std::move(owner)) {}

  std::string typeName() const override {
    switch (type_) {
      case host::msoControlPopup:
        return "CommandBarPopup";
      case host::msoControlButton:
        return "CommandBarButton";
      default:
        return "CommandBarComboBox";
    }
  }
  void requireAlive() const {
    if (deleted_)
      base::raise(base::errors::invalidRequest, "CommandBarControl: Invalid request. It was deleted.");
  }

  host::Subscription subscribe(host::EventHandler handler) override {
    auto kept = std::make_shared<host::EventHandler>(std::move(handler));
    handlers_.push_back(kept);
    return host::Subscription([self = weak_from_this(), kept] {
      if (const auto control = self.lock()) std::erase(control->handlers_, kept);
    });
  }

  std::int32_t type() { return type_; }
  std::int32_t id() { return id_; }
  template <auto Field>
  auto read() {
    return this->*Field;
  }
  template <auto Field>
  void write(std::decay_t<decltype(std::declval<ControlObject>().*Field)> value) {
    this->*Field = std::move(value);
  }
  std::string tooltip() { return tooltip_.empty() ? plainCaption(caption_) : tooltip_; }
  void setTooltip(const std::string& text) { tooltip_ = text; }

  Value state() {
    require(host::msoControlButton);
    return Value(state_);
  }
  void setState(std::int32_t state) {
    require(host::msoControlButton);
    if (state != host::msoButtonUp && state != host::msoButtonDown && state != host::msoButtonMixed) {
      base::raise(base::errors::outOfRange);
    }
    state_ = state;
  }
  host::ObjectRef controls();

  void addItem(Arguments arguments) {
    require(host::msoControlDropdown);
    items_.push_back(arguments[0].toString());
  }
  std::string list(Arguments arguments) {
    require(host::msoControlDropdown);
    return items_[collectionIndex(arguments[0].toInt(), items_.size())];
  }
  std::int32_t listCount() {
    require(host::msoControlDropdown);
    return static_cast<std::int32_t>(items_.size());
  }
  std::int32_t listIndex() {
    require(host::msoControlDropdown);
    return listIndex_;
  }
  void setListIndex(std::int32_t index) {
    require(host::msoControlDropdown);
    if (index != 0) collectionIndex(index, items_.size());
    listIndex_ = index;
  }
  std::string text() {
    require(host::msoControlDropdown);
    return listIndex_ > 0 ? items_[static_cast<std::size_t>(listIndex_) - 1] : std::string();
  }

  /// What a user's click does: nothing on a disabled control, otherwise the control's event.
  void execute() {
    if (!enabled_) return;
    if (type_ == host::msoControlDropdown) {
      Value arguments[] = {Value(shared_from_this())};
      raiseEvent(member::Change, arguments);
    } else {
      Value arguments[] = {Value(shared_from_this()), Value(false)};
      raiseEvent(member::Click, arguments);
    }
  }
  void remove();
  void markDeleted() { deleted_ = true; }
  const std::string& caption() const { return caption_; }
  const std::string& tag() const { return tag_; }

 private:
  void require(std::int32_t type) const {
    if (type_ != type) base::raise(base::errors::noSuchMember);
  }
  void raiseEvent(Member event, std::span<Value> arguments) {
    const auto handlers = handlers_;
    for (const auto& handler : handlers) (*handler)(event, arguments);
  }

  std::int32_t type_;
  std::int32_t id_;
  std::weak_ptr<ControlsObject> owner_;
  std::shared_ptr<ControlsObject> controls_;
  std::vector<std::shared_ptr<host::EventHandler>> handlers_;
  std::vector<std::string> items_;
  std::int32_t listIndex_ = 0;
  std::string caption_, tag_, parameter_, tooltip_, description_;
  bool enabled_ = true, visible_ = true, beginGroup_ = false, deleted_ = false;
  std::int32_t helpContextId_ = 0, faceId_ = 0, style_ = 0, state_ = 0;
  Value picture_, mask_;
};

class ControlsObject : public ModelObject<ControlsObject> {
 public:
  static constexpr const char* className = "CommandBarControls";
  static const MemberTable<ControlsObject>& members() {
    static const MemberTable<ControlsObject> table{
        property<&ControlsObject::count>(member::Count),
        method<&ControlsObject::item>(member::Item, 1),
        method<&ControlsObject::add>(member::Add, 0, 5),
    };
    return table;
  }
  using ModelObject::ModelObject;

  std::int32_t count() { return static_cast<std::int32_t>(controls_.size()); }

  host::ObjectRef item(Arguments arguments) {
    if (!arguments[0].isString()) return controls_[collectionIndex(arguments[0].toInt(), controls_.size())];
    const std::string caption = plainCaption(arguments[0].toString());
    for (const auto& control : controls_) {
      if (base::equalsIgnoreCase(plainCaption(control->caption()), caption)) return control;
    }
    base::raise(base::errors::outOfRange, "CommandBarControls.Item: there is no control '" + caption + "'.");
  }

  /// Add(Type, Id, Parameter, Before, Temporary).
  host::ObjectRef add(Arguments arguments) {
    const auto type = argumentOr(arguments, 0, std::int32_t{host::msoControlButton});
    if (type != host::msoControlButton && type != host::msoControlDropdown && type != host::msoControlPopup &&
        type != host::msoControlEdit) {
      base::raise(base::errors::outOfRange);
    }
    auto control = std::make_shared<ControlObject>(host(), type, argumentOr(arguments, 1, std::int32_t{1}),
                                                   weak_from_this());
    if (const Value* parameter = argument(arguments, 2)) {
      control->invoke(member::Parameter, Invoke::put, {parameter, 1});
    }
    const Value* before = argument(arguments, 3);
    const auto place = before ? collectionIndex(before->toInt(), controls_.size()) : controls_.size();
    controls_.insert(controls_.begin() + static_cast<std::ptrdiff_t>(place), control);
    return control;
  }

  void remove(const ControlObject& control) {
    std::erase_if(controls_, [&](const auto& other) { return other.get() == &control; });
  }

 private:
  std::vector<std::shared_ptr<ControlObject>> controls_;
};

#define VELLUMARK_FIELD(field) \
  property<&ControlObject::read<&ControlObject::field>, &ControlObject::write<&ControlObject::field>>
const MemberTable<ControlObject>& ControlObject::members() {
  static const MemberTable<ControlObject> table{
      property<&ControlObject::type>(member::Type),
      property<&ControlObject::id>(member::Id),
      VELLUMARK_FIELD(enabled_)(member::Enabled),
      VELLUMARK_FIELD(visible_)(member::Visible),
      VELLUMARK_FIELD(caption_)(member::Caption),
      VELLUMARK_FIELD(tag_)(member::Tag),
      VELLUMARK_FIELD(parameter_)(member::Parameter),
      VELLUMARK_FIELD(description_)(member::DescriptionText),
      VELLUMARK_FIELD(beginGroup_)(member::BeginGroup),
      VELLUMARK_FIELD(helpContextId_)(member::HelpContextId),
      VELLUMARK_FIELD(faceId_)(member::FaceId),
      VELLUMARK_FIELD(style_)(member::Style),
      VELLUMARK_FIELD(picture_)(member::Picture).from(10),
      VELLUMARK_FIELD(mask_)(member::Mask).from(10),
      property<&ControlObject::tooltip, &ControlObject::setTooltip>(member::TooltipText),
      property<&ControlObject::state, &ControlObject::setState>(member::State),
      property<&ControlObject::controls>(member::Controls),
      method<&ControlObject::addItem>(member::AddItem, 1, 2),
      method<&ControlObject::list>(member::List, 1),
      property<&ControlObject::listCount>(member::ListCount),
      property<&ControlObject::listIndex, &ControlObject::setListIndex>(member::ListIndex),
      property<&ControlObject::text>(member::Text),
      method<&ControlObject::execute>(member::Execute),
      method<&ControlObject::remove>(member::Delete, 0, 1),
  };
  return table;
}
#undef VELLUMARK_FIELD

host::ObjectRef ControlObject::controls() {
  require(host::msoControlPopup);
  if (!controls_) controls_ = std::make_shared<ControlsObject>(host());
  return controls_;
}

void ControlObject::remove() {
  deleted_ = true;
  if (const auto owner = owner_.lock()) owner->remove(*this);
}

class BarsObject;

class BarObject : public ModelObject<BarObject> {
 public:
  static constexpr const char* className = "CommandBar";
  static const MemberTable<BarObject>& members();

  BarObject(HostRef host, std::string name, std::int32_t position, std::weak_ptr<BarsObject> owner)
      : ModelObject(std::move(host)), name_(std::move(name)), position_(position), owner_(std::move(owner)) {
    controls_ = std::make_shared<ControlsObject>(this->host());
  }
  void requireAlive() const {
    if (deleted_)
      base::raise(base::errors::invalidRequest, "CommandBar: Invalid request. The bar was deleted.");
  }

  const std::string& barName() const { return name_; }
  std::string name() { return name_; }
  host::ObjectRef controls() { return controls_; }
  template <auto Field>
  auto read() {
    return this->*Field;
  }
  template <auto Field>
  void write(std::decay_t<decltype(std::declval<BarObject>().*Field)> value) {
    this->*Field = value;
  }
  void remove();

 private:
  std::string name_;
  std::int32_t position_;
  std::weak_ptr<BarsObject> owner_;
  std::shared_ptr<ControlsObject> controls_;
  std::int32_t left_ = 0, top_ = 0, width_ = 0, height_ = 26, rowIndex_ = 1;
  bool visible_ = false, enabled_ = true, deleted_ = false;
};

class BarsObject : public ModelObject<BarsObject> {
 public:
  static constexpr const char* className = "CommandBars";
  static const MemberTable<BarsObject>& members() {
    static const MemberTable<BarsObject> table{
        property<&BarsObject::count>(member::Count),
        method<&BarsObject::item>(member::Item, 1),
        method<&BarsObject::add>(member::Add, 0, 4),
        method<&BarsObject::findControl>(member::FindControl, 0, 4),
    };
    return table;
  }
  using ModelObject::ModelObject;

  std::int32_t count() { return static_cast<std::int32_t>(bars_.size()); }

  host::ObjectRef item(Arguments arguments) {
    if (!arguments[0].isString()) return bars_[collectionIndex(arguments[0].toInt(), bars_.size())];
    const std::string name = arguments[0].toString();
    for (const auto& bar : bars_) {
      if (base::equalsIgnoreCase(bar->barName(), name)) return bar;
    }
    base::raise(base::errors::outOfRange, "CommandBars.Item: there is no bar '" + name + "'.");
  }

  /// Add(Name, Position, MenuBar, Temporary). A name can be given once.
  host::ObjectRef add(Arguments arguments) {
    const auto name = argumentOr(arguments, 0, "Custom " + std::to_string(bars_.size() + 1));
    for (const auto& bar : bars_) {
      if (base::equalsIgnoreCase(bar->barName(), name)) base::raise(base::errors::invalidCall);
    }
    bars_.push_back(std::make_shared<BarObject>(host(), name, argumentOr(arguments, 1, std::int32_t{1}),
                                                weak_from_this()));
    return bars_.back();
  }

  /// FindControl(Type, Id, Tag, Visible): the first control of the bars, popups not entered, for which all
  /// that is given holds; nothing where there is none.
  host::ObjectRef findControl(Arguments arguments) {
    for (const auto& bar : bars_) {
      const std::int32_t count = bar->controls()->invoke(member::Count, Invoke::get, {}).toInt();
      for (std::int32_t i = 1; i <= count; ++i) {
        const Value index(i);
        const host::ObjectRef control =
            bar->controls()->invoke(member::Item, Invoke::get, {&index, 1}).toObject();
        const auto agrees = [&](std::size_t place, Member name) {
          const Value* wanted = argument(arguments, place);
          return !wanted || control->invoke(name, Invoke::get, {}).toString() == wanted->toString();
        };
        if (agrees(0, member::Type) && agrees(1, member::Id) && agrees(2, member::Tag)) return control;
      }
    }
    return nullptr;
  }

  void remove(const BarObject& bar) {
    std::erase_if(bars_, [&](const auto& other) { return other.get() == &bar; });
  }

 private:
  std::vector<std::shared_ptr<BarObject>> bars_;
};

#define VELLUMARK_FIELD(field) \
  property<&BarObject::read<&BarObject::field>, &BarObject::write<&BarObject::field>>
const MemberTable<BarObject>& BarObject::members() {
  static const MemberTable<BarObject> table{
      property<&BarObject::name>(member::Name),     property<&BarObject::controls>(member::Controls),
      VELLUMARK_FIELD(left_)(member::Left),         VELLUMARK_FIELD(top_)(member::Top),
      VELLUMARK_FIELD(width_)(member::Width),       VELLUMARK_FIELD(height_)(member::Height),
      VELLUMARK_FIELD(rowIndex_)(member::RowIndex), VELLUMARK_FIELD(position_)(member::Position),
      VELLUMARK_FIELD(visible_)(member::Visible),   VELLUMARK_FIELD(enabled_)(member::Enabled),
      method<&BarObject::remove>(member::Delete),
  };
  return table;
}
#undef VELLUMARK_FIELD

void BarObject::remove() {
  deleted_ = true;
  if (const auto owner = owner_.lock()) owner->remove(*this);
}

}  // namespace

host::ObjectRef makeCommandBars(const HostRef& host) { return std::make_shared<BarsObject>(host); }

}  // namespace vellumark::deck
