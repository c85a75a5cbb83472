// SPDX-License-Identifier: MIT
// A tab book whose fields can be walked through by the Tab key.
#pragma once

#include <fx.h>

/// A tab book of a dialog in which only one page counts.
///
/// In the toolkit's own book the Tab key goes on from the last field of a page to the next page and
/// opens it, and what was typed no longer counts. Here it goes on to what follows the book, and
/// from outside into the open page; with Shift the same way back. The tabs answer the mouse, and
/// the arrow keys once they have the focus.
class page_book : public FXTabBook {
    FXDECLARE(page_book)

public:
    /// A book that fills its parent.
    explicit page_book(FXComposite* parent);
    page_book(const page_book&) = delete;
    page_book& operator=(const page_book&) = delete;

    long onFocusStep(FXObject*, FXSelector, void*);
    long onFocusFromOutside(FXObject*, FXSelector, void*);

protected:
    page_book() = default;

private:
    long enter_page(FXuint type, void* event);
};
