#include "clientcard/RecordTabs.h"

#include "clientcard/RecordTab.h"

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

  private:
    CardFrame& frame_;
    std::map<int, RecordTab> tabs_;
};

} // namespace

std::unique_ptr<TabFamily> makeRecordTabs(CardFrame& frame) {
    return std::make_unique<RecordTabs>(frame);
}

} // namespace clientcard
