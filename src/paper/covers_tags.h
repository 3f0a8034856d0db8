// Tags of the views of the covers dialog, as its nib gives them.
#pragma once

#include "controls/control_tables.h"

namespace specialpages {

inline constexpr ControlTag spCoversWndCoverOptionListTitleID = 200;
inline constexpr ControlTag spCoversWndCoverOptionListID = 201;
inline constexpr ControlTag spCoversWndFrontCoverPageViewTitleID = 202;
inline constexpr ControlTag spCoversWndFrontCoverPageViewID = 203;
inline constexpr ControlTag spCoversWndFrontCoverPageListID = 204;
inline constexpr ControlTag spCoversWndFrontPrintingOptionTitleID = 205;
inline constexpr ControlTag spCoversWndFrontPrintingOptionListID = 206;
inline constexpr ControlTag spCoversWndBackCoverPageViewTitleID = 207;
inline constexpr ControlTag spCoversWndBackCoverPageViewID = 208;
inline constexpr ControlTag spCoversWndBackCoverPageListID = 209;
inline constexpr ControlTag spCoversWndBackPrintingOptionTitleID = 210;
inline constexpr ControlTag spCoversWndBackPrintingOptionListID = 211;
inline constexpr ControlTag spCoversWndJobSettingRefTitleID = 212;
inline constexpr ControlTag spCoversWndJobSettingRefViewID = 213;
inline constexpr ControlTag spCoversWndHelpButtonID = 214;
inline constexpr ControlTag spCoversWndDefaultsButtonID = 215;
inline constexpr ControlTag spCoversWndCancelButtonID = 216;
inline constexpr ControlTag spCoversWndOKButtonID = 217;

} // namespace specialpages
