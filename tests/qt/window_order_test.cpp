#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QWindow>

#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

TEST_F(QtForms, AWindowFloatsAboveTheModalOneAndGoesBackToItsParent) {
    QWidget frame;
    frame.show();
    QDialog owned(&frame);
    QWidget free;
    {
        QDialog modal;
        modal.setModal(true);
        modal.show();
        ASSERT_EQ(QApplication::activeModalWidget(), &modal);
        for (QWidget* window : {static_cast<QWidget*>(&owned), &free}) {
            floatAboveModal(*window);
            EXPECT_EQ(window->windowHandle()->transientParent(), modal.windowHandle());
        }
        floatAboveModal(modal);
        EXPECT_EQ(modal.windowHandle()->transientParent(), nullptr);
    }
    // Another window's place shows that it is set, not merely gone with the dialog.
    QWidget other;
    other.show();
    for (QWidget* window : {static_cast<QWidget*>(&owned), &free})
        window->windowHandle()->setTransientParent(other.windowHandle());
    floatAboveModal(owned);
    floatAboveModal(free);
    EXPECT_EQ(owned.windowHandle()->transientParent(), frame.windowHandle());
    EXPECT_EQ(free.windowHandle()->transientParent(), nullptr);
}

TEST_F(QtForms, AFormWithoutAWindowIsNotLoaded) {
    Form form("noSuchLayout", "");
    EXPECT_THROW(form.load(), Error);
    EXPECT_FALSE(form.isLoaded());
    EXPECT_TRUE(loadedForms().empty());
}

}  // namespace
}  // namespace kelvor::qt
