#include "tools/host_age.h"

#include "core/globals.h"

namespace vellumark::tools {

HostAge hostAge() {
  const std::string version = core::globals().powerPointApp.Version();
  if (version == "9.0" || version == "10.0" || version == "11.0") return HostAge::old;
  if (version == "12.0" || version == "14.0") return HostAge::new_;
  return HostAge::other;
}

}  // namespace vellumark::tools
