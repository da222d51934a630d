#pragma once

namespace report {

/// Lets readers of the screen read the page that a PageView shows: its text, line by line.
void letPagesBeRead();

} // namespace report
