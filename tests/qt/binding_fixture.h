#pragma once

#include <QMainWindow>
#include <QVBoxLayout>
#include <memory>
#include <vector>

#include "platform/qt/binding.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {

/// A window with one widget, of the name and the class that a test gives it.
class Binding : public QtForms {
protected:
    /// A control that lives as long as its form.
    template <typename Model, typename... Args>
    Model& make(const char* name, Args&&... args) {
        auto model = std::make_unique<Model>(form_, name, std::forward<Args>(args)...);
        Model& made = *model;
        controls_.push_back(std::move(model));
        return made;
    }
    template <typename Widget>
    Widget& add(const char* name) {
        auto* widget = new Widget(&window_);
        widget->setObjectName(name);
        layout_.addWidget(widget);
        return *widget;
    }
    void bind() {
        EXPECT_EQ(bindForm(form_, window_), std::vector<std::string>());
        window_.show();
    }
    ~Binding() override { unbindForm(form_, window_); }

    Form form_{"test", "A form"};
    std::vector<std::unique_ptr<Control>> controls_;
    QMainWindow window_;
    QWidget& content_ = *new QWidget;
    QVBoxLayout& layout_ = *new QVBoxLayout(&content_);
    int told_ = 0;

    Binding() { window_.setCentralWidget(&content_); }
    void count(Event<>& event) {
        event.connect([this] { ++told_; });
    }
};

}  // namespace kelvor::qt
