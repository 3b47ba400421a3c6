// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include "base/event.h"

namespace kelvor {

class Form;

/// The frame's area of child windows: which there are, and which is in front.
class MdiArea {
public:
    enum class Change { shown, removed, activated, arranged };
    enum class Arrangement { cascade, tileHorizontally, tileVertically, icons };

    MdiArea() = default;
    MdiArea(const MdiArea&) = delete;
    MdiArea& operator=(const MdiArea&) = delete;

    /// Shows a loaded child form and brings it to the front, from its icon too, and raises its `activated`, whether it
    /// was there already or not.
    void show(Form& child);
    /// The same for a child that is shown, unless it is in front already.
    void activate(Form& child);
    /// Takes a child form out; the one that was in front before it comes forward.
    void remove(Form& child);

    /// The child in front, or nullptr.
    Form* activeForm() const { return front_.empty() ? nullptr : front_.back(); }
    /// The shown children in the order of their coming.
    const std::vector<Form*>& children() const { return children_; }
    bool contains(const Form& child) const;

    /// Brings the next (or previous) child in the order of their coming to the front, going round at the end.
    void activateNext();
    void activatePrevious();

    void arrange(Arrangement arrangement);

    /// The view that follows: what happened, to which child (nullptr for an arrangement).
    using Follower = std::function<void(Change, Form*)>;
    void follow(Follower follower) { follower_ = std::move(follower); }
    /// The arrangement asked for last; read by the view.
    Arrangement arrangement() const { return arrangement_; }

private:
    void bringToFront(Form& child);
    void activateAtDistance(int distance);
    void tell(Change change, Form* child) const {
        if (follower_) follower_(change, child);
    }

    std::vector<Form*> children_;
    std::vector<Form*> front_;  ///< the same children, the active one last
    Arrangement arrangement_ = Arrangement::cascade;
    Follower follower_;
};

}  // namespace kelvor
