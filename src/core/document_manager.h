// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/document.h"
#include "frame/main_frame.h"
#include "text/keyed_collection.h"

namespace kelvor {

/// The open documents, in the order of opening, and the status panels that tell of the one in front.
class CDocumentManager : public DocumentOwner {
public:
    using Documents = KeyedCollection<std::shared_ptr<CDocument>>;

    explicit CDocumentManager(MDIForm1& frame) : frame_(frame) {}

    const Documents& MyDocuments() const { return documents_; }

    bool UpdateLineStats(CDocument& document) override;
    bool UpdateChars(CDocument& document) override;

    MDIForm1& KVMDIForm() const { return frame_; }

    void add(std::shared_ptr<CDocument> document) override;
    void remove(const std::string& key) override;
    std::size_t count() const override { return documents_.Count(); }

    /// The document of the selected tab. No tab: error 91; no document of its tag: error 5.
    CDocument& currentDocument() const;

private:
    Documents documents_;
    MDIForm1& frame_;
};

/// The one manager. Before the start and after the frame's end an error 91.
CDocumentManager& documentManager();

/// Made by the start, and ended with the frame: the documents that are still open go with their manager.
void createDocumentManager();
void endDocumentManager();

}  // namespace kelvor
