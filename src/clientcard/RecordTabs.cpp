#include "clientcard/RecordTabs.h"

#include "clientcard/RecordTab.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace clientcard {

namespace {

class RecordTabs : public TabFamily {
  public:
    explicit RecordTabs(CardFrame& frame) : frame_(frame) {}

    QWidget* makePage(int tab, QWidget* parent) override {
        return tabs_.try_emplace(tab, frame_, tab).first->second.makePage(parent);
    }
    void turnedTo(int tab) override { tabs_.at(tab).turnedTo(); }
    std::vector<forms::NotWritten> takeErrors() override;

  private:
    CardFrame& frame_;
    std::map<int, RecordTab> tabs_;
};

std::vector<forms::NotWritten> RecordTabs::takeErrors() {
    std::vector<forms::NotWritten> errors;
    for (auto& [number, tab] : tabs_) {
        std::ranges::move(tab.takeErrors(), std::back_inserter(errors));
    }
    return errors;
}

} // namespace

std::unique_ptr<TabFamily> makeRecordTabs(CardFrame& frame) {
    return std::make_unique<RecordTabs>(frame);
}

} // namespace clientcard
