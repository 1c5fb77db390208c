#pragma once

#include "canvas/CanvasModel.h"
#include "hosts/viewer/Hand.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPalette>

#include <string>
#include <vector>

// Objects of the tests of many; fewer where checks of the compiler slow everything.
#if defined(NDEBUG)
inline constexpr int Many = 100000;
#else
inline constexpr int Many = 3000;
#endif

// A panel in a window of its own, of a canvas with an image of 200 x 150 whose values are their columns.
template <typename Panel>
struct ShownPanel {
    vostel::viewer::CanvasModel Model;
    Panel                       Window;

    explicit ShownPanel(QSize size = QSize(420, 360))
    {
        std::vector<float> ramp(200 * 150);
        for (std::size_t i = 0; i < ramp.size(); ++i)
            ramp[i] = static_cast<float>(i % 200);
        Model.Open().image_show(VOSTEL_F32, ramp.data(), 200, 150);
        Model.Open().resize(400, 300);
        Window.SetCanvas(&Model);
        hand::Show(Window, QRect(QPoint(50, 40), size));
    }

    vostel::Canvas&             Open() { return Model.Open(); }
    std::vector<vostel::Object> Objects() { return Open().object_list(); }
    std::uint32_t               Undos() { return Open().history_info().undo_count; }
    std::string                 LastStep() { return Open().history_name(-1).value_or(std::string()); }

    // Small rectangles, in few calls.
    void AddMany()
    {
        constexpr int      Once = 1000;
        const vostel::Step many = Open().step("many");
        const std::size_t  before = Objects().size();
        for (int i = 0; i < Once; ++i)
            Open().add_rectangle(i % 190, i % 140, i % 190 + 5, i % 140 + 5);
        const std::vector<vostel::Object> all = Objects();
        const std::string                 text =
            Open().regions_text({all.begin() + static_cast<std::ptrdiff_t>(before), all.end()});
        for (int i = Once; i < Many; i += Once)
            Open().regions_add_text(text);
    }

    template <typename Part>
    Part& Of(const char* name)
    {
        return hand::Of<Part>(Window, name);
    }
    void Press(const char* button) { hand::Click(Of<QWidget>(button)); }

    // Keeps pictures of it in light and dark colors.
    void Keep(const char* name)
    {
        hand::Settle();
        hand::Keep(Window, name);
        const QPalette light = QApplication::palette();
        QPalette       dark(QColor(53, 53, 53), QColor(45, 45, 45));
        dark.setColor(QPalette::Base, QColor(35, 35, 35));
        dark.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
        QApplication::setPalette(dark);
        hand::Settle();
        hand::Keep(Window, (std::string(name) + "-dark").c_str());
        QApplication::setPalette(light);
        hand::Settle();
    }
};

namespace hand {

inline void ClickCell(QAbstractItemView& view, int row, int column)
{
    Click(*view.viewport(), view.visualRect(view.model()->index(row, column)).center());
}

inline void DoubleClickCell(QAbstractItemView& view, int row, int column)
{
    DoubleClick(*view.viewport(), view.visualRect(view.model()->index(row, column)).center());
}

// Clicks an entry of an open menu by what it says.
inline void Choose(QMenu& menu, const char* text)
{
    for (QAction* const action : menu.actions())
        if (action->text() == QString::fromLatin1(text))
            return Click(menu, menu.actionGeometry(action).center());
    throw std::runtime_error(std::string("no entry of the menu says ") + text);
}

inline QString CellText(QAbstractItemView& view, int row, int column)
{
    return view.model()->index(row, column).data().toString();
}

}
