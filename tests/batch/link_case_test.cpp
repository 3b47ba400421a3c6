// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/link_case.h"

#include "controls/form.h"
#include "controls/text_buffer.h"
#include "tests/kit/fake_platform.h"

namespace kelvor {
namespace {

class References : public testing::Test {
protected:
    FakePlatform platform;
    Form form{"test", ""};
    TextBuffer box{form, "box"};
};

TEST_F(References, ChangeCaseBetweenTheQuotesOfTheAttributeAlone) {
    for (const auto& [before, attribute, lower, upper, refused] : {
             std::tuple{R"(<A HREF="Foo.HTM">)", "HREF=\"", R"(<A HREF="foo.htm">)", R"(<A HREF="FOO.HTM">)", false},
             {R"(href="A" HREF = "B" HREF='c')", "HREF=\"", R"(href="a" HREF = "B" HREF='c')",
              R"(href="A" HREF = "B" HREF='c')", false},
             {R"(x-name="A" NAME="")", "NAME=\"", R"(x-name="a" NAME="")", R"(x-name="A" NAME="")", false},
             {R"(HREF="X<Y" HREF="Z")", "HREF=\"", R"(HREF="X<Y" HREF="z")", R"(HREF="X<Y" HREF="Z")", true},
             {R"(HREF="Y<")", "HREF=\"", R"(HREF="y<")", R"(HREF="Y<")", false},
             {R"(HREF="Aa" HREF="Bc)", "HREF=\"", R"(HREF="aa" HREF="Bc)", R"(HREF="AA" HREF="Bc)", true},
             {R"(HREF="Aa>HREF="Bb")", "HREF=\"", R"(HREF="aa>href="bb")", R"(HREF="AA>HREF="BB")", false},
             // In the other case these are longer or shorter; what follows keeps its place.
             {"SRC=\"ß\u0130\" \u017Frc=\"Ä\u212A\" SRC=\"Zz\"", "SRC=\"",
              "SRC=\"ßi\u0307\" \u017Frc=\"äk\" SRC=\"zz\"", "SRC=\"SS\u0130\" \u017Frc=\"Ä\u212A\" SRC=\"ZZ\"", false},
         }) {
        for (const LinkCase wanted : {LinkCase::lower, LinkCase::upper}) {
            box.setText(before);
            EXPECT_EQ(changeLinkCase(box, attribute, wanted), !refused) << before;
            EXPECT_EQ(box.text(), wanted == LinkCase::lower ? lower : upper);
        }
    }
}

}  // namespace
}  // namespace kelvor
