// SPDX-License-Identifier: MIT
// A tab book whose fields can be walked through by the Tab key.
#include "libfoxaux/fox-utils/page_book.h"

// clang-format off
FXDEFMAP(page_book) page_bookMap[] = {
    FXMAPFUNC(SEL_FOCUS_NEXT, 0, page_book::onFocusStep),
    FXMAPFUNC(SEL_FOCUS_PREV, 0, page_book::onFocusStep),
    FXMAPFUNC(SEL_FOCUS_DOWN, 0, page_book::onFocusFromOutside),
    FXMAPFUNC(SEL_FOCUS_UP,   0, page_book::onFocusFromOutside),
};
// clang-format on

FXIMPLEMENT(page_book, FXTabBook, page_bookMap, ARRAYNUMBER(page_bookMap))

page_book::page_book(FXComposite* parent)
    : FXTabBook(parent, nullptr, 0, LAYOUT_FILL_X | LAYOUT_FILL_Y) {}

long page_book::enter_page(FXuint type, void* event) {
    FXWindow* page = childAtIndex(2 * getCurrent() + 1); // each tab is followed by its page
    return page ? page->handle(this, FXSEL(type, 0), event) : 0;
}

// Comes from a page when it has no further field: the focus leaves the book. From a tab, Tab leads
// into the page, and Shift with Tab out of the book.
long page_book::onFocusStep(FXObject*, FXSelector sel, void* event) {
    const FXuint type = FXSELTYPE(sel);
    const FXWindow* inside = getFocus();
    const bool from_tab = inside && inside->isMemberOf(FXMETACLASS(FXTabItem));
    if (inside && !(from_tab && type == SEL_FOCUS_NEXT)) return 0;
    return enter_page(type, event);
}

// With the focus outside the book this is the Tab key: the frame around the book, walked through
// from its start or its end, asks for what lies below or above. With the focus inside it is an
// arrow key.
long page_book::onFocusFromOutside(FXObject* sender, FXSelector sel, void* event) {
    const bool down = FXSELTYPE(sel) == SEL_FOCUS_DOWN;
    if (!getFocus()) return enter_page(down ? SEL_FOCUS_NEXT : SEL_FOCUS_PREV, event);
    return down ? FXTabBook::onFocusDown(sender, sel, event)
                : FXTabBook::onFocusUp(sender, sel, event);
}
