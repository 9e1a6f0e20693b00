#pragma once
// The template presentations of the Slide Wizard.

#include <string>
#include <vector>

namespace vellumark::samples {

struct Template {
  std::string path;  ///< below the folder of the styles: "Vellumark Blue/text.pptx"
  std::string bytes;
};

/// All templates of all styles.
std::vector<Template> templates();

}  // namespace vellumark::samples
