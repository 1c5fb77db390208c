#pragma once

#include "documents/Outcome.h"
#include "documents/PageReader.h"
#include "documents/PageSource.h"

#include <QObject>

#include <map>
#include <vector>

namespace vostel::viewer {

class CanvasModel;

// The pages that a canvas can show, one after the other. Objects stay on the canvas. Large pages are read in
// the back, while the window goes on, and the next one before it is asked for.
class Stack : public QObject {
    Q_OBJECT

public:
    explicit Stack(CanvasModel& model, QObject* parent = nullptr);

    int               Count() const { return static_cast<int>(Sources.size()); }    // 1 of a single picture
    int               Index() const { return Shown; }                               // from 0
    const PageSource* Current() const;                                              // null without a picture

    // Whether window, gamma and map stay from page to page; else each page gets its own first contrast.
    bool KeepsContrast() const { return ContrastStays; }
    void SetKeepsContrast(bool keeps) { ContrastStays = keeps; }

    bool IsGoing() const { return Going; }    // the image that comes is a page
    // Whether the canvas knows the file of what it shows; what was read in the back came from memory.
    bool IsNamed() const { return Named; }

    bool IsReady(int index) const { return Ready.contains(index); }    // has been read before it is asked for

    // Shows another page, now or when it has been read; of several calls the last one counts. A page that
    // cannot be read leaves the one that is shown, which CanvasModel::failed() reports.
    void Go(int index);

    // Shows one of new pages in the place of everything on the canvas; all stays if that cannot be read.
    Outcome Start(std::vector<PageSource> sources, int first = 0);
    // Of the picture that the canvas shows already.
    void Take(std::vector<PageSource> sources, int shown);
    void Clear();

Q_SIGNALS:
    void changed();    // number of pages or the shown one

private:
    bool          IsQuickPage(int index) const;
    std::uint32_t Keeps() const;
    void          HearRead(int index, const ReadPage& page);
    void          ShowRead(int index, const Canvas& page);
    void          TakeShown(int index, bool named);
    void          ReadMore();

    CanvasModel&            Model;
    std::vector<PageSource> Sources;
    int                     Shown = 0;
    int                     Wanted = 0;
    int                     Direction = 1;
    bool                    ContrastStays = true;
    bool                    Going = false;
    bool                    Named = true;

    PageReader                             Reader;
    std::map<int, std::shared_ptr<Canvas>> Ready;    // read before it was asked for
};

}
