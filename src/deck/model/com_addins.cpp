// The other add-ins that the host knows.

#include "base/text.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"

namespace vellumark::deck {
namespace {

class ComAddInObject : public ModelObject<ComAddInObject> {
 public:
  static constexpr const char* className = "COMAddIn";
  static const MemberTable<ComAddInObject>& members() {
    static const MemberTable<ComAddInObject> table{
        property<&ComAddInObject::progId>(member::ProgId),
        property<&ComAddInObject::connected, &ComAddInObject::setConnected>(member::Connect),
        property<&ComAddInObject::object>(member::Object),
    };
    return table;
  }
  ComAddInObject(HostRef host, std::size_t place) : ModelObject(std::move(host)), place_(place) {}
  void requireAlive() const {
    if (place_ >= host()->addIns.size()) base::raise(base::errors::invalidRequest);
  }

  std::string progId() { return state().progId; }
  bool connected() { return state().connected; }
  void setConnected(bool on) { state().connected = on; }
  host::ObjectRef object() { return state().object; }

 private:
  AddInState& state() { return host()->addIns[place_]; }
  std::size_t place_;
};

class ComAddInsObject : public ModelObject<ComAddInsObject> {
 public:
  static constexpr const char* className = "COMAddIns";
  static const MemberTable<ComAddInsObject>& members() {
    static const MemberTable<ComAddInsObject> table{
        property<&ComAddInsObject::count>(member::Count),
        method<&ComAddInsObject::item>(member::Item, 1),
    };
    return table;
  }
  using ModelObject::ModelObject;

  std::int32_t count() { return static_cast<std::int32_t>(host()->addIns.size()); }
  host::ObjectRef item(Arguments arguments) {
    const auto& addIns = host()->addIns;
    if (!arguments[0].isString()) return at(collectionIndex(arguments[0].toInt(), addIns.size()));
    for (std::size_t i = 0; i < addIns.size(); ++i) {
      if (base::equalsIgnoreCase(addIns[i].progId, arguments[0].toString())) return at(i);
    }
    base::raise(base::errors::outOfRange);
  }

 private:
  host::ObjectRef at(std::size_t place) { return std::make_shared<ComAddInObject>(host(), place); }
};

}  // namespace

host::ObjectRef makeComAddIns(const HostRef& host) { return std::make_shared<ComAddInsObject>(host); }

}  // namespace vellumark::deck
