#include "platform/toolkit/Nib.h"

#include "platform/foundation/atomic_file.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/IconView.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/Stepper.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"

#include <algorithm>

namespace specialpages::platform {

NibObject::~NibObject() = default;
NibOwner::~NibOwner() = default;
Nib::~Nib() = default;

namespace {

std::shared_ptr<View> make_button(const NibElement& element) {
    auto button = std::make_shared<Button>(element.kind);
    button->setTitle(element.text);
    button->setIntValue(element.value);
    return button;
}

std::shared_ptr<View> make_popup(const NibElement& element) {
    auto popup = std::make_shared<PopUpButton>();
    for (const std::string& item : element.items) {
        popup->addItemWithTitle(item);
    }
    return popup;
}

std::shared_ptr<View> make_text(const NibElement& element) {
    auto field = std::make_shared<TextField>(element.kind);
    field->setStringValue(element.text);
    return field;
}

std::shared_ptr<View> make_stepper(const NibElement& element) {
    auto stepper = std::make_shared<Stepper>();
    stepper->setRange(element.minimum, element.maximum);
    stepper->setIncrement(element.singleStep);
    stepper->setIntValue(element.value);
    return stepper;
}

std::shared_ptr<View> make_table(const NibElement& element) {
    auto table = std::make_shared<TableView>();
    std::vector<TableColumn> columns(std::max(element.columnIdentifiers.size(), element.columnTitles.size()));
    for (std::size_t i = 0; i < element.columnIdentifiers.size(); ++i) {
        columns[i].identifier = element.columnIdentifiers[i];
    }
    for (std::size_t i = 0; i < element.columnTitles.size(); ++i) {
        columns[i].headerTitle = element.columnTitles[i];
    }
    table->setTableColumns(std::move(columns));
    return table;
}

std::shared_ptr<View> make_window(const NibElement& element) {
    auto window = std::make_shared<Window>();
    window->setTitle(element.title);
    return window;
}

std::shared_ptr<View> make_view(const NibElement& element) {
    switch (element.kind) {
    case ViewKind::view:
        return std::make_shared<View>();
    case ViewKind::window:
        return make_window(element);
    case ViewKind::icon:
        return std::make_shared<IconView>();
    case ViewKind::button:
    case ViewKind::radio:
        return make_button(element);
    case ViewKind::popup:
        return make_popup(element);
    case ViewKind::textField:
    case ViewKind::staticText:
    case ViewKind::scrollText:
        return make_text(element);
    case ViewKind::stepper:
        return make_stepper(element);
    case ViewKind::table:
        return make_table(element);
    }
    return std::make_shared<View>();
}

std::string in_quotes(const std::string& text) {
    return '"' + text + '"';
}

} // namespace

class Nib::Builder {
  public:
    Builder(NibOwner& owner, Nib& nib) : owner_(owner), nib_(nib) {}

    bool buildTree(const NibElement& root) {
        for (const NibElement& child : root.children) {
            const std::shared_ptr<View> view = build(child);
            nib_.views_.push_back(view);
            if (!addChildren(child, *view)) {
                return false;
            }
        }
        return true;
    }

    bool makeObjects(const NibElement& element) {
        return (element.object.empty() || makeObject(element)) &&
               std::ranges::all_of(element.children,
                                   [this](const auto& child) { return makeObjects(child); });
    }

    const std::string& error() const { return error_; }

  private:
    std::shared_ptr<View> build(const NibElement& element) {
        std::shared_ptr<View> view = make_view(element);
        view->setName(element.name);
        view->setTag(element.tag);
        view->setEnabled(element.enabled);
        view->setHidden(!element.visible && element.kind != ViewKind::window);
        view->setToolTip(element.toolTip);
        return view;
    }

    /// Connects the view too: in the order of the nib, when it stands in its window already.
    bool addChildren(const NibElement& element, View& view) {
        if (!element.name.empty()) {
            owner_.connectOutlet(element.name, view);
        }
        return takeRole(element, view) && std::ranges::all_of(element.children, [&](const auto& child) {
                   return addChildren(child, view.addSubview(build(child)));
               });
    }

    bool takeRole(const NibElement& element, View& view) {
        auto* const button = dynamic_cast<Button*>(&view);
        Window* const window = view.window();
        if (element.role.empty() || button == nullptr || window == nullptr) {
            return true;
        }
        const bool cancels = element.role == "cancel";
        if ((cancels ? window->cancelButton() : window->defaultButton()) != nullptr) {
            error_ = in_quotes(element.name) + " is a second " + element.role + " button of its window";
            return false;
        }
        cancels ? window->setCancelButton(button) : window->setDefaultButton(button);
        return true;
    }

    bool makeObject(const NibElement& element) {
        auto object = owner_.instantiate(element.object);
        if (object == nullptr) {
            error_ = in_quotes(element.name) + ": no object of class " + in_quotes(element.object);
            return false;
        }
        NibObject& made = *nib_.objects_.emplace_back(std::move(object));
        if (!owner_.connectObject(element.objectOutlet, made)) {
            error_ = in_quotes(element.name) + ": no outlet " + in_quotes(element.objectOutlet) +
                     " for an object of class " + in_quotes(element.object);
            return false;
        }
        return true;
    }

    NibOwner& owner_;
    Nib& nib_;
    std::string error_;
};

std::unique_ptr<Nib> Nib::instantiate(const NibElement& root, NibOwner& owner, std::string* error) {
    std::unique_ptr<Nib> nib(new Nib);
    Builder builder(owner, *nib);
    if (builder.buildTree(root) && builder.makeObjects(root)) {
        return nib;
    }
    if (error != nullptr) {
        *error = builder.error();
    }
    return nullptr;
}

std::unique_ptr<Nib> Nib::loadNibFile(const std::filesystem::path& file, NibOwner& owner,
                                      std::string* error) {
    const auto source = read_nib(file, error);
    if (source == nullptr) {
        return nullptr;
    }
    std::string why;
    auto nib = instantiate(source->root, owner, &why);
    if (nib == nullptr) {
        if (error != nullptr) {
            *error = file.string() + ": " + why;
        }
        return nullptr;
    }
    for (const std::shared_ptr<View>& view : nib->views_) {
        view->setNib(source);
    }
    return nib;
}

} // namespace specialpages::platform
