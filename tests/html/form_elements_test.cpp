// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/form_elements.h"

#include <gtest/gtest.h>

#include <tuple>

#include "html/image_tag.h"

namespace kelvor {
namespace {

TEST(ImageTag, WritesEachFieldInItsPlaceAndLeavesOutWhatIsEmptyOrZero) {
    const ImageFields all = {"a\\é \".gif", "n", "<A>", {"150", true}, {"20", false}, "1", "2", "3", "TOP", true, "v"};
    ImageFields none = {.source = "a.gif", .width = {"", true}, .value = "v"};
    EXPECT_EQ(imageTag(all), R"(<INPUT TYPE="image" SRC="a\é ".gif" NAME="n" ALT="<A>" WIDTH="150%" HEIGHT="20")"
                             R"( HSPACE="1" VSPACE="2" BORDER="3" VALUE="v" ALIGN="TOP">)");
    EXPECT_EQ(imageTag(none), R"(<IMG SRC="a.gif" BORDER="0">)");
    none.horizontalSpace = none.verticalSpace = none.border = "";
    EXPECT_EQ(imageTag(none), R"(<IMG SRC="a.gif" HSPACE="" VSPACE="" BORDER="">)");
}

TEST(FormElements, InputsAndPairsAreWrittenFieldByField) {
    const InputFields all = {"n", "\"<é>", "5", ""};
    for (const auto& [build, full, empty] :
         {std::tuple{&buildHF, R"(<INPUT TYPE="HIDDEN" NAME="n" VALUE=""<é>">)", R"(<INPUT TYPE="HIDDEN">)"},
          {&buildBut, R"(<INPUT TYPE="BUTTON" NAME="n" VALUE=""<é>">)", R"(<INPUT TYPE="BUTTON">)"},
          {&buildSubmit, R"(<INPUT TYPE="SUBMIT" NAME="n" VALUE=""<é>">)", R"(<INPUT TYPE="SUBMIT" VALUE="">)"},
          {&buildPW, R"(<INPUT TYPE="PASSWORD" NAME="n" VALUE=""<é>" MAXLENGTH="5" SIZE="">)",
           R"(<INPUT TYPE="PASSWORD">)"},
          {&buildTB, R"(<INPUT TYPE="TEXT" NAME="n" VALUE=""<é>" MAXLENGTH="5" SIZE="">)", R"(<INPUT TYPE="TEXT">)"},
          {&buildRB, R"(<INPUT TYPE="RESET" VALUE=""<é>">)", R"(<INPUT TYPE="RESET" VALUE="">)"}}) {
        EXPECT_EQ(build(all), full);
        EXPECT_EQ(build({}), empty);
    }
    EXPECT_EQ(textAreaTags({"n", "", "7", "a\r\nb"}), "<TEXTAREA NAME=\"n\" ROWS=\"\" COLS=\"7\">a\r\nb</TEXTAREA>");
    EXPECT_EQ(textAreaTags({}), "<TEXTAREA></TEXTAREA>");
    EXPECT_EQ(formPair({"n", "POST", "a.cgi"}), "<FORM NAME=\"n\" METHOD=\"POST\" ACTION=\"a.cgi\">\r\n\r\n</FORM>");
    const std::string pair = formPair({});
    EXPECT_EQ(pair.substr(pair.size() - formPairTail), "\r\n</FORM>");
}

TEST(FormElements, GroupsHaveALineForEachChoice) {
    const std::vector<FormOption> options = {{"One", "1"}, {"Two", "2", true}};
    EXPECT_EQ(buildSelectGroup("s", options),
              "<SELECT NAME=\"s\">\r\n\t<OPTION VALUE=\"1\">One</OPTION>\r\n"
              "\t<OPTION SELECTED VALUE=\"2\">Two</OPTION>\r\n</SELECT>");
    EXPECT_EQ(buildSelectGroup("", {}), "<SELECT>\r\n</SELECT>");
    EXPECT_EQ(buildRBGroup("r", options),
              "<INPUT NAME=\"r\" TYPE=\"RADIO\" VALUE=\"1\">One</INPUT>\r\n"
              "<INPUT NAME=\"r\" TYPE=\"RADIO\" CHECKED VALUE=\"2\">Two</INPUT>\r\n");
    EXPECT_EQ(buildCBGroup("", {options[0]}), "<INPUT TYPE=\"CHECKBOX\" VALUE=\"1\">One</INPUT>\r\n");
}

}  // namespace
}  // namespace kelvor
