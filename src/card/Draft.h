#pragma once

#include <functional>
#include <vector>

namespace store {
class DataSource;
}

namespace card {

/// What was typed into an edit that a save may close in vain, and the way to open it again.
class Draft {
  public:
    using Step = std::function<void()>;
    using Typed = std::vector<Step>;

    /// @param reopen drops the edit and opens it anew; may throw store::EngineError
    /// @param typed put what was typed into the fields again
    void keep(Step reopen, Typed typed);
    /// Keeps the row that is open in a source, which must outlive the draft.
    void keepRow(store::DataSource& source, Typed typed);
    /// Goes on as if the save had not begun. An edit that can't be opened is owed: its fields show
    /// what was typed all the same.
    void resume();
    bool isOwed() const { return isOwed_; }
    /// Opens the edit that is owed, with what its fields show by now. @throws store::EngineError
    void openOwed(Typed typed);
    /// The edit is given up.
    void forget() { isOwed_ = false; }

  private:
    void putBack() const;

    Step reopen_;
    Typed typed_;
    bool isOwed_ = false;
};

} // namespace card
