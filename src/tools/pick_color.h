#pragma once

#include <functional>
#include <string_view>

#include "host/presentation.h"
#include "tools/color_row.h"
#include "ui/form.h"
#include "ui/screen.h"

namespace vellumark::tools {

/// A magnifier that follows the mouse over the whole screen. A click outside the dialog samples the pixel
/// under the cursor; `btnAdd` adds its colour to the presentation's own colours. Where the system lets no
/// program see the screen, the desktop is asked for a colour instead, once the dialog is there and at each
/// click on the logo.
class pickColor : public ui::Form {
 public:
  pickColor();
  ~pickColor() override;

  ui::Timer Timer1{*this, "Timer1", 50};
  ui::PictureBox magnifier{*this, "magnifier", 64, 64};
  ui::PictureBox zorpLogo{*this, "zorpLogo", 64, 64};
  ui::PictureBox hatchBMP{*this, "hatchBMP", 8, 8};  ///< the pattern of what lies off the screen; not seen
  ui::Label lPreview{*this, "lPreview", "Color:"};
  ui::ColorBox preview{*this, "preview", ui::rgb(255, 255, 255)};
  ui::Label lR{*this, "lR", "R"};
  ui::Label RGB_R{*this, "RGB_R"};
  ui::Label lG{*this, "lG", "G"};
  ui::Label RGB_G{*this, "RGB_G"};
  ui::Label lB{*this, "lB", "B"};
  ui::Label RGB_B{*this, "RGB_B"};
  ui::Label hint{*this, "hint"};
  ui::Label lScheme{*this, "lScheme", "Color scheme"};
  ColorRow schemeColors{*this, "schemeColors"};
  ui::Label lCustom{*this, "lCustom", "Custom colors"};
  ColorRow customColors{*this, "customColors"};
  ui::CommandButton btnAdd{*this, "btnAdd", "&Add"};
  ui::CommandButton btnClose{*this, "btnClose", "&Close"};

 private:
  void Form_Load();
  void Form_Activate();
  void Form_Unload();
  void Form_KeyDown(int keyCode);
  void Timer1_Timer();
  void zorpLogo_Click();
  void btnAdd_Click();
  void btnClose_Click();
  void drawHatchRect(int left, int top, int right, int bottom);

  void guarded(std::string_view location, const std::function<void()>& body);
  void stopWatching();
  void magnify(const ui::Point& cursor);
  void sample(ui::Color color);
  void showCustomColors(const host::ExtraColors& colors);
  void askDesktop();

  ui::Screen* screen_ = nullptr;  ///< none where no program may see it
  bool asked_ = false;
  bool asking_ = false;
};

}  // namespace vellumark::tools
