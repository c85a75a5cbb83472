// SPDX-License-Identifier: MIT
// A tab book whose fields can be walked through by the Tab key.
#include "libfoxaux/fox-utils/page_book.h"

// clang-format off
FXDEFMAP(page_book) page_bookMap[] = {
    FXMAPFUNC(SEL_FOCUS_NEXT, 0, page_book::onFocusNext),
};
// clang-format on

FXIMPLEMENT(page_book, FXTabBook, page_bookMap, ARRAYNUMBER(page_bookMap))

page_book::page_book(FXComposite* parent)
    : FXTabBook(parent, nullptr, 0, LAYOUT_FILL_X | LAYOUT_FILL_Y) {}

// The children are tabs and pages in turn. The page itself has no further field when this arrives.
long page_book::onFocusNext(FXObject*, FXSelector, void* event) {
    FXWindow* page = childAtIndex(2 * getCurrent() + 1);
    if (!page || page->getFocus()) return 0;
    return page->handle(this, FXSEL(SEL_FOCUS_NEXT, 0), event);
}
