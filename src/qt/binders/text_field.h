// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLineEdit;

namespace kelvor {
class TextField;
enum class Aspect;
}  // namespace kelvor

namespace kelvor::qt {

class FormLink;

/// Brings the widget's text and its selection up to date after a change of `aspect`, without raising its signals.
void showField(const TextField& field, QLineEdit& widget, Aspect aspect);

/// Lets the control know what the user selects, and the widget hold long texts; one that is too long can only be read.
void joinField(TextField& field, QLineEdit& widget, FormLink& link);

}  // namespace kelvor::qt
