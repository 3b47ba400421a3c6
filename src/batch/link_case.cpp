// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/link_case.h"

#include "html/link_references.h"
#include "platform/platform.h"
#include "text/letter_case.h"

namespace kelvor {

bool changeLinkCase(EditControl& box, const std::string& what, LinkCase caseMode) {
    const LinkReferences references = parseLinkReferences(box.textView(), what);
    const EditControl::Batch batch(box);
    const int textLength = box.textLength();
    int growth = 0;  // a few letters have another length in the other case
    for (const htmlLink& link : references.links) {
        if (box.textLength() != textLength + growth) return false;
        box.setSelStart(link.linkStart + growth);
        box.setSelLength(link.linkEnd - link.linkStart + 1);
        const std::string value = box.selText();
        box.setSelText(caseMode == LinkCase::lower ? toLower(value) : toUpper(value));
        growth = box.textLength() - textLength;
        pumpEvents();
    }
    return !references.badLinks;
}

}  // namespace kelvor
