#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace forms {

/// Puts its items side by side, and into further rows where there is no room for all. Its spacing
/// is that between the items of a row.
class FlowLayout : public QLayout {
    Q_OBJECT
  public:
    enum class Fill {
        /// The items of a row share its whole width, as groups of fields do.
        Share,
        /// The first item takes what the others leave of its row, as a hint before buttons does.
        First,
        /// Items keep their width and begin at the left.
        Left
    };

    /// @param parent may be null for a layout within another
    explicit FlowLayout(Fill fill, QWidget* parent = nullptr);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    /// Adds a layout as one item.
    void addLayout(QLayout* layout);
    int count() const override { return int(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& place) override;
    void invalidate() override;

  private:
    struct Row;
    std::vector<Row> rowsFor(int width) const;
    int leastWidth(const QLayoutItem& item) const;
    std::vector<int> widthsIn(const Row& row, int width) const;
    int heightOf(const Row& row, const std::vector<int>& widths) const;
    int space() const;

    Fill fill_;
    std::vector<std::unique_ptr<QLayoutItem>> items_;
    mutable int knownWidth_ = -1;
    mutable int knownHeight_ = 0;
};

} // namespace forms
