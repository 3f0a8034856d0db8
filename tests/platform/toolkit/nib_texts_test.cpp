#include "platform/toolkit/Button.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "platform/toolkit/nib_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace specialpages::platform {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string in_brackets(const std::string& text) {
    return "[" + text + "]";
}

std::shared_ptr<TextField> field(ViewKind kind, const std::string& text) {
    auto made = std::make_shared<TextField>(kind);
    made->setStringValue(text);
    return made;
}

TEST(NibTexts, TitlesStaticTextsAndToolTipsAreTranslatedAtAnyDepth) {
    const auto root = std::make_shared<View>();
    const auto window = std::make_shared<Window>();
    window->setTitle("Add Covers");
    const auto group = std::make_shared<View>();
    const auto button = std::make_shared<Button>(ViewKind::button);
    button->setTitle("Help");
    button->setToolTip("Help about covers");
    const auto radio = std::make_shared<Button>(ViewKind::radio);
    radio->setTitle("Inches");
    const auto label = field(ViewKind::staticText, "Covers:");
    root->addSubview(window);
    window->addSubview(group);
    for (const std::shared_ptr<View>& view : std::vector<std::shared_ptr<View>>{button, radio, label}) {
        group->addSubview(view);
    }
    translate_nib_texts(std::vector<std::shared_ptr<View>>{root}, in_brackets);
    EXPECT_EQ(window->title(), "[Add Covers]");
    EXPECT_EQ(button->title(), "[Help]");
    EXPECT_EQ(button->toolTip(), "[Help about covers]");
    EXPECT_EQ(radio->title(), "[Inches]");
    EXPECT_EQ(label->stringValue(), "[Covers:]");
}

TEST(NibTexts, WhatTheProgramOrTheUserFillsIsLeftAlone) {
    const auto typed = field(ViewKind::textField, "3, 7-9");
    const auto scrolling = field(ViewKind::scrollText, "Paper Size: A4");
    const auto menu = std::make_shared<PopUpButton>();
    menu->addItemWithTitle("No Change");
    translate_nib_texts(std::vector<std::shared_ptr<View>>{typed, scrolling, menu}, in_brackets);
    EXPECT_EQ(typed->stringValue(), "3, 7-9");
    EXPECT_EQ(scrolling->stringValue(), "Paper Size: A4");
    EXPECT_EQ(menu->menu().itemAtIndex(0)->title(), "No Change");
}

TEST(NibTexts, EmptyTextsAreNotLookedUp) {
    std::vector<std::string> asked;
    const auto button = std::make_shared<Button>(ViewKind::button);
    const auto window = std::make_shared<Window>();
    const auto label = field(ViewKind::staticText, "");
    translate_nib_texts(std::vector<std::shared_ptr<View>>{button, window, label},
                        [&asked](const std::string& text) {
                            asked.push_back(text);
                            return std::string("x");
                        });
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(button->title(), "");
}

TEST(NibTexts, OnlyAnotherTextIsAnnounced) {
    const auto button = std::make_shared<Button>(ViewKind::button);
    button->setTitle("OK");
    const auto help = std::make_shared<Button>(ViewKind::button);
    help->setTitle("Help");
    std::vector<std::string> announced;
    for (const auto& each : {button, help}) {
        each->addObserver([&announced, ok = button.get()](View& view, ViewChange) {
            announced.emplace_back(&view == ok ? "OK" : "Help");
        });
    }
    translate_nib_texts(std::vector<std::shared_ptr<View>>{button, help},
                        [](const std::string& text) { return text == "Help" ? std::string("Hilfe") : text; });
    EXPECT_EQ(button->title(), "OK");
    EXPECT_EQ(help->title(), "Hilfe");
    EXPECT_THAT(announced, ElementsAre("Help"));
}

} // namespace
} // namespace specialpages::platform
