#include "deck/model/application.h"

#include "base/text.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"

namespace vellumark::deck {
namespace {

constexpr double firstWithFileDialogs = 10.0;

class ApplicationObject : public ModelObject<ApplicationObject>, public host::EventSource {
 public:
  static constexpr const char* className = "Application";
  static const MemberTable<ApplicationObject>& members() {
    static const MemberTable<ApplicationObject> table{
        property<&ApplicationObject::name>(member::Name),
        property<&ApplicationObject::version>(member::Version),
        property<&ApplicationObject::presentations>(member::Presentations),
        property<&ApplicationObject::windows>(member::Windows),
        property<&ApplicationObject::activeWindow>(member::ActiveWindow),
        property<&ApplicationObject::activePresentation>(member::ActivePresentation),
        property<&ApplicationObject::comAddIns>(member::COMAddIns),
        property<&ApplicationObject::commandBars>(member::CommandBars),
        method<&ApplicationObject::fileDialog>(member::FileDialog, 1).from(firstWithFileDialogs),
        method<&ApplicationObject::run>(member::Run, 1, 31),
    };
    return table;
  }
  using ModelObject::ModelObject;

  host::Subscription subscribe(host::EventHandler handler) override {
    return host()->subscribe(std::move(handler));
  }

  std::string name() { return "Microsoft PowerPoint"; }
  std::string version() { return host()->version(); }
  host::ObjectRef presentations() { return makePresentations(host()); }
  host::ObjectRef windows() { return makeWindows(host()); }
  host::ObjectRef activeWindow() {
    host()->activeWindow();
    return makeWindow(host(), host()->windows.front());
  }
  host::ObjectRef activePresentation() {
    if (host()->windows.empty()) {
      base::raise(base::errors::invalidRequest,
                  "Application (unknown member): Invalid request. There is no active presentation.");
    }
    return makePresentation(host(), host()->windows.front()->document);
  }
  host::ObjectRef comAddIns() { return makeComAddIns(host()); }
  host::ObjectRef commandBars() {
    if (!commandBars_) commandBars_ = makeCommandBars(host());
    return commandBars_;
  }
  host::ObjectRef fileDialog(Arguments arguments) { return makeFileDialog(host(), arguments[0].toInt()); }
  /// Macros are those that the program registered with the host: a file's own code is never run.
  void run(Arguments arguments) {
    const std::string address = arguments[0].toString();
    const auto macro = host()->macros.find(base::toLower(address));
    if (macro == host()->macros.end()) {
      base::raise(base::errors::invalidRequest,
                  "Application.Run: Invalid request. Sub or function '" + address + "' not defined.");
    }
    macro->second();
  }

 private:
  host::ObjectRef commandBars_;
};

}  // namespace

host::ObjectRef makeApplication(const HostRef& host) { return std::make_shared<ApplicationObject>(host); }

}  // namespace vellumark::deck
