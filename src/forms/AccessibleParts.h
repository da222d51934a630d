#pragma once

class QCoreApplication;

namespace forms {

/// Lets readers of the screen know what the toolkit keeps from them: a drop-down is called by its
/// label and not by its value, its list and its edit part are called as it is, a list is called by
/// the label beside it. Holds for all windows, those of the toolkit too.
void nameParts(QCoreApplication& application);

} // namespace forms
