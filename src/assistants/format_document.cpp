// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/format_document.h"

#include <cstddef>
#include <optional>

#include "authoring/links.h"
#include "controls/edit_control.h"
#include "editing/insertion.h"
#include "frame/color_dialog.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "html/head_edits.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/user_settings.h"

namespace kelvor {

namespace {

constexpr int metaPage = 1;

const Message titleIsError = {.text =
                                  "There are no <TITLE></TITLE> tags in this document.\r\n"
                                  "All HTML files must have a title\r\n"
                                  "\r\n"
                                  "Your new title will appear wherever your \r\n"
                                  "cursor is located at this time.  You will have to cut \r\n"
                                  "and paste it into the <HEAD> section manually.",
                              .title = "Formatting error encountered",
                              .icon = MessageIcon::critical};

const Message incompleteRedirect = {
    .text = "Both the target and the delay fields must contain values in order to create a valid redirect.",
    .title = "Incomplete values",
    .icon = MessageIcon::exclamation};

void refuseUnclosed(std::string_view token) {
    beepAndShow({.text = std::string(token) + " is not closed properly. Operation aborted",
                 .title = "Tag not closed",
                 .icon = MessageIcon::exclamation});
    formLoadFailed = true;
}

void fillTxtBox(TextBox& field, const std::string& value) {
    if (!value.empty()) field.setText(value);
}

constexpr std::size_t attributeOfColor(std::size_t field) {
    return static_cast<std::size_t>(BodyAttribute::text) + field;
}

void apply(const std::optional<HeadEdit>& edit) {
    if (!edit) return;
    EditControl& text = activeText();
    text.setSelStart(static_cast<int>(edit->position));
    text.setSelLength(static_cast<int>(edit->length));
    text.setSelText(edit->text);
}

void findMetaReplaceMeta(const TagTokens& tag, const std::string& newTag) {
    apply(metaEdit(activeText().textView(), tag, newTag));
}

void findTagReplaceTag(const TagTokens& tag, const std::string& newTag) {
    apply(tagEdit(activeText().textView(), tag, newTag));
}

}  // namespace

FormatDocument::FormatDocument() : ToolDialog("formatDoc", "Format Document") {
    // "(n/a)" comes before all names and shows at first.
    cboBaseFont.setSorted(true);
    txtDelay.setKeys(keys::digits);
    selectThemselves(txtTitle, txtBgGraphic, txtOnLoad, txtMetaA, txtMetaD, txtMetaG, txtMetaK);
    for (std::size_t i = 0; i < txtColor.size(); ++i) {
        txtColor[i].setToolTip("Double click to access the color palette");
        txtColor[i].doubleClicked.connect([&field = txtColor[i]] { chooseColorFor(field); });
    }
}

void FormatDocument::Form_Load() {
    fillFontCombo(cboBaseFont, true);
    extractMetaA();
    extractMetaG();
    txtMetaD.setText(valueOf(head::description));
    txtMetaK.setText(valueOf(head::keywords));
    chkCache.setValue(occursIn(activeText().textView(), head::noCache));
    extractMetaR();
    extractBody();
    extractTitle();
    extractBaseFont();
    activeText().setSelLength(0);
    txtTitle.SetFocus();
}

void FormatDocument::Form_Unload() {
    activeText().setSelLength(0);
}

std::string FormatDocument::valueOf(const TagTokens& tag) const {
    if (const auto value = extractText(tag, activeText().textView())) return std::string(*value);
    refuseUnclosed(tag.start);
    return {};
}

void FormatDocument::extractMetaA() {
    const std::string author = valueOf(head::author);
    txtMetaA.setText(author.empty() && user::fillsInAuthor.isTrue("False") ? user::authorName.text() : author);
}

void FormatDocument::extractMetaG() {
    const std::string generator = valueOf(head::generator);
    const bool fillsIn = generator.empty() && user::fillsInProgram.isTrue("True");
    txtMetaG.setText(fillsIn ? "Kelvor 32-bit HTML Editor" : generator);
}

void FormatDocument::extractMetaR() {
    const std::string value = valueOf(head::refresh);
    if (value.empty()) return;
    const Redirect redirect = redirectFrom(value);
    txtTarget.setText(redirect.target);
    txtDelay.setText(redirect.delay);
}

void FormatDocument::extractBody() {
    EditControl& text = activeText();
    // Without a place to start at, what is selected is searched if there is something.
    const int start = text.Find(head::body.start);
    const int end = text.Find(head::body.end, start);
    if (start < 0 || end < 0) return;
    text.setSelStart(start);
    text.setSelLength(end - start + 1);
    const std::string tag = text.selText();
    if (tag == "<BODY>") return;
    const BodyReading reading = readBodyTag(tag);
    for (const std::string_view token : reading.unclosed) refuseUnclosed(token);
    showBody(reading.values);
}

void FormatDocument::showBody(const BodyAttributes& values) {
    for (std::size_t i = 0; i < txtColor.size(); ++i) {
        fillTxtBox(txtColor[i], values[attributeOfColor(i)]);
        showColorSample(values[attributeOfColor(i)], txtColor[i]);
    }
    fillTxtBox(txtOnLoad, values[static_cast<std::size_t>(BodyAttribute::onLoad)]);
    fillTxtBox(txtBgGraphic, values[static_cast<std::size_t>(BodyAttribute::background)]);
}

void FormatDocument::extractTitle() {
    const std::string title = valueOf(head::title);
    if (title != "error") return txtTitle.setText(title);
    beepAndShow(titleIsError);
}

void FormatDocument::extractBaseFont() {
    if (occursIn(activeText().textView(), head::baseFont.start)) cboBaseFont.setText(valueOf(head::baseFont));
}

void FormatDocument::txtBgGraphic_DblClick() {
    if (const auto path = pickPicture())
        txtBgGraphic.setText(linkTarget(mainForm().TabStrip1.selectedItem().caption, *path));
}

bool FormatDocument::checkMetaRedirect() {
    if (isComplete(redirect())) return true;
    SSTab1.setTab(metaPage);
    beepAndShow(incompleteRedirect);
    (textBoxEmpty(txtTarget) ? txtTarget : txtDelay).SetFocus();
    return false;
}

void FormatDocument::cmdFinished_Click() {
    if (!enabled() || !checkMetaRedirect()) return;
    writeDocument();
    unload();
}

BodyAttributes FormatDocument::bodyAttributes() const {
    BodyAttributes values;
    for (std::size_t i = 0; i < txtColor.size(); ++i) values[attributeOfColor(i)] = txtColor[i].text();
    values[static_cast<std::size_t>(BodyAttribute::onLoad)] = txtOnLoad.text();
    values[static_cast<std::size_t>(BodyAttribute::background)] = txtBgGraphic.text();
    return values;
}

void FormatDocument::writeDocument() {
    // The dialog stays open while events run, and so the document below it.
    const DisabledForm disabled(*this);
    const EditControl::Batch oneStep(activeText());
    findMetaReplaceMeta(head::author, tagAround(head::author, txtMetaA.text()));
    findMetaReplaceMeta(head::description, tagAround(head::description, txtMetaD.text()));
    findMetaReplaceMeta(head::generator, tagAround(head::generator, txtMetaG.text()));
    findMetaReplaceMeta(head::keywords, tagAround(head::keywords, txtMetaK.text()));
    findMetaReplaceMeta(head::refresh, redirectTag(redirect()));
    findTagReplaceTag(head::body, bodyTag(bodyAttributes()));
    findTagReplaceTag(head::title, titleTag(txtTitle.text()));
    pumpEvents();
    insertBaseFont();
    handleMETAC();
}

void FormatDocument::insertBaseFont() {
    if (cboBaseFont.listIndex() == 0) return;
    apply(baseFontEdit(activeText().textView(), cboBaseFont.text()));
}

void FormatDocument::handleMETAC() {
    apply(noCacheEdit(activeText().textView(), chkCache.value()));
}

void mnuTools_Format_Click() {
    openToolForm(toolForm<FormatDocument>(), ShowMode::modal);
}

}  // namespace kelvor
