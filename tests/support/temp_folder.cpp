#include "support/temp_folder.h"

#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace vellumark::test {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
  std::random_device random;
  do {
    root_ = fs::temp_directory_path() / ("vellumark-test-" + std::to_string(random()));
  } while (!fs::create_directory(root_));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

std::string TempFolder::path(const std::string& name) const {
  fs::path path = root_ / name;
  fs::create_directories(path.parent_path());
  return path.make_preferred().string();
}

std::string TempFolder::write(const std::string& name, const std::string& bytes) const {
  const std::string target = path(name);
  std::ofstream out(target, std::ios::binary);
  out << bytes;
  if (!out.flush()) throw std::runtime_error(target + ": can't be written");
  return target;
}

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error(path + ": can't be read");
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

}  // namespace vellumark::test
