#pragma once

class QApplication;

namespace forms {

/// Gives all windows of the program their one look: style and colours. The font is the desktop's.
void dress(QApplication& application);

} // namespace forms
