// SPDX-License-Identifier: MIT
// The two file dialogs, over one and the same dialog of the toolkit.
#include "libfoxaux/fox-utils/file_dialogs.h"

#include "libfoxaux/fox-utils/dialog_shape.h"
#include "libfoxaux/fox-utils/history_manager.h"
#include "libfoxaux/fox-utils/icons.h"
#include "libfoxaux/fox-utils/label_text.h"
#include "libfoxaux/fox-utils/layout.h"

namespace {

// What a file dialog is opened with; an empty text leaves the toolkit's default.
struct request {
    FXWindow* owner;
    const FXString& title;
    const kit::string& patterns;
    FXuint mode;
};

// Runs the dialog once. Accepted: `file` and `directory` take what was chosen. Otherwise `file`
// becomes empty and the answer is false.
bool choose(const request& request, kit::string& file, kit::string& directory) {
    FXGIFIcon icon(FXApp::instance(), icons::file_gif);
    FXFileDialog dialog(request.owner, request.title, 0, 0, 0, grown(500), grown(300));
    dialog.setIcon(&icon);
    dialog.setSelectMode(request.mode);
    if (!file.is_empty()) dialog.setFilename(file.c_str());
    if (!request.patterns.is_empty()) dialog.setPatternList(request.patterns.c_str());
    if (!directory.is_empty()) dialog.setDirectory(directory.c_str());
    dialog.create();
    place_on_monitor(dialog, PLACEMENT_OWNER);
    focus_first_field(&dialog); // that of the name; the toolkit gives the focus to none
    if (!dialog.execute(PLACEMENT_DEFAULT)) {
        file = kit::string::empty();
        return false;
    }
    file = dialog.getFilename().text();
    // Not the folder that was shown: a path may have been typed.
    directory = FXPath::directory(file.c_str()).text();
    return true;
}

// Asks whether the file may be overwritten, if there is one: MBOX_CLICKED_YES, _NO or _CANCEL.
FXuint ask_overwrite(FXWindow* owner, const kit::string& file) {
    if (!FXStat::exists(file.c_str())) return MBOX_CLICKED_YES;
    const FXString name = box_text(FXPath::name(file.c_str()).text());
    const FXuint answer = FXMessageBox::question(owner, MBOX_YES_NO_CANCEL, "Warning",
                                                 "File \"%s\" exists.\nOverwrite it?", name.text());
    // Closing the box is no answer, and nothing is overwritten without one.
    const bool answered = answer == MBOX_CLICKED_YES || answer == MBOX_CLICKED_NO;
    return answered ? answer : FXuint{MBOX_CLICKED_CANCEL};
}

// The same for the chosen name, and then for the one that is written in its place.
FXuint ask_overwrite(FXWindow* owner, const kit::string& file, const written_name& rule) {
    const FXuint answer = ask_overwrite(owner, file);
    if (answer != MBOX_CLICKED_YES || !rule) return answer;
    const kit::string written = rule(file);
    return written == file ? answer : ask_overwrite(owner, written);
}

} // namespace

void open_file_dialog(FXWindow* owner, const FXString& title, kit::string& file,
                      const kit::string& patterns, const kit::string& key_file, int key_line,
                      void* key_context) {
    const history_object remembered(key_file.c_str(), key_line, key_context);
    kit::string directory = *remembered._S;
    if (choose({owner, title, patterns, SELECTFILE_EXISTING}, file, directory))
        *remembered._S = directory;
}

void save_file_dialog(FXWindow* owner, const FXString& title, kit::string& file,
                      const kit::string& patterns, const kit::string& key_file, int key_line,
                      void* key_context, const written_name& rule) {
    const history_object remembered(key_file.c_str(), key_line, key_context);
    kit::string directory = *remembered._S;
    FXuint answer = MBOX_CLICKED_NO;
    while (answer == MBOX_CLICKED_NO) {
        if (!choose({owner, title, patterns, SELECTFILE_ANY}, file, directory)) return;
        answer = ask_overwrite(owner, file, rule);
    }
    if (answer == MBOX_CLICKED_CANCEL) {
        file = kit::string::empty();
    } else {
        *remembered._S = directory;
    }
}
