#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace vostel::viewer {

// Widgets in rows as wide as there is room, so that a narrow panel cuts nothing off.
class FlowLayout : public QLayout {
public:
    explicit FlowLayout(QWidget* parent = nullptr);
    ~FlowLayout() override;

    void             addItem(QLayoutItem* item) override;
    int              count() const override;
    QLayoutItem*     itemAt(int index) const override;
    QLayoutItem*     takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool             hasHeightForWidth() const override { return true; }
    int              heightForWidth(int width) const override;
    void             setGeometry(const QRect& place) override;
    QSize            sizeHint() const override;
    QSize            minimumSize() const override;

private:
    int Arrange(const QRect& place, bool really) const;    // returns the height

    std::vector<std::unique_ptr<QLayoutItem>> Items;
};

}
