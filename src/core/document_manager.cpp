// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/document_manager.h"

#include "base/event.h"
#include "base/single.h"
#include "editing/rich_text_box.h"

namespace kelvor {

namespace {

Single<CDocumentManager>& instance() {
    static Single<CDocumentManager> manager;
    return manager;
}

}  // namespace

bool CDocumentManager::UpdateLineStats(CDocument& document) {
    CRichTextBox& tracker = document.objKVRichTextBox();
    tracker.RefreshInformation();
    if (document.SourceRTB().selLength() != 0) return true;
    frame_.StatusBar1.setPanelText(
        panel::position, std::to_string(tracker.characterPosition()) + "/" + std::to_string(tracker.lineNumber()));
    return true;
}

bool CDocumentManager::UpdateChars(CDocument& document) {
    const int characters = document.SourceRTB().characterCount();
    frame_.StatusBar1.setPanelText(panel::characters, "Characters: " + std::to_string(characters) + " ");
    return true;
}

void CDocumentManager::add(std::shared_ptr<CDocument> document) {
    const std::string key = document->StrUniqueID();
    documents_.Add(std::move(document), key);
}

void CDocumentManager::remove(const std::string& key) {
    if (!documents_.contains(key)) return;
    retire(documents_.Item(key));
    documents_.Remove(key);
}

CDocument& CDocumentManager::currentDocument() const {
    return *documents_.Item(mainForm().TabStrip1.selectedItem().tag);
}

CDocumentManager& documentManager() {
    return instance().get();
}

void createDocumentManager() {
    instance().make(mainForm());
}

void endDocumentManager() {
    instance().end();
}

}  // namespace kelvor
