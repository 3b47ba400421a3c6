#pragma once

#include "platform/qt/form_link.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QStatusBar;
class QTabBar;
class QWidget;

namespace kelvor {
class Button;
class ComboBox;
class EditControl;
class Label;
class ListView;
class PictureBox;
class StatusBar;
class TabStrip;
class TextBox;
class WebBrowser;
}  // namespace kelvor

namespace kelvor::qt {

void bindButton(Button& button, QPushButton& widget, FormLink& link);
void bindComboBox(ComboBox& box, QComboBox& widget, FormLink& link);
/// Puts the control's own widget into `place`, which it fills.
void bindEditControl(EditControl& edit, QWidget& place, FormLink& link);
void bindLabel(Label& label, QLabel& widget, FormLink& link);
void bindListView(ListView& list, QListView& widget, FormLink& link);
void bindPictureBox(PictureBox& box, QWidget& widget, FormLink& link);
/// Makes the panels, which the layout does not have.
void bindStatusBar(StatusBar& bar, QStatusBar& widget, FormLink& link);
void bindTabStrip(TabStrip& strip, QTabBar& widget, FormLink& link);
void bindTextBox(TextBox& box, QLineEdit& widget, FormLink& link);
void bindWebBrowser(WebBrowser& browser, QWidget& place, FormLink& link);

/// Makes the menu bar, or nothing when the form has no menus. Each menu is a QMenu with the name of its control.
void bindMenus(FormLink& link);

}  // namespace kelvor::qt
