#pragma once

class QApplication;

namespace forms {

/// Gives all windows of the program their one look: style, colours and font.
void dress(QApplication& application);

} // namespace forms
