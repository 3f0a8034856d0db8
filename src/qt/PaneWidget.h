// The pane of one printer as a widget, for a tab of a print dialog: the widgets of its nib in line with its
// views, its windows, its keys, and its help.
#pragma once

#include "host/PrintHost.h"
#include "qt/HelpViewer.h"
#include "qt/Mirror.h"
#include "qt/NibWidgets.h"
#include "qt/WindowWidgets.h"

#include <QPointer>
#include <QWidget>
#include <memory>

namespace specialpages::qt {

class QtFace;

class PaneWidget : public QWidget, public WindowWidgets {
  public:
    /// The host's pane is open (openPane answered true). Host and face are borrowed and outlive the widget.
    /// The widget's window title is the pane's name. HostError (other) when the pane has no view or its nib
    /// cannot be shown.
    PaneWidget(host::PrintHost& host, QtFace& face, QWidget* parent = nullptr);
    ~PaneWidget() override;

    /// Makes this pane the one in front: its host's window is the application's main window, its dialogs are
    /// the face's, its help is what help buttons open. Of several panes one is in front at a time.
    void activate();

    host::PrintHost& host() const { return host_; }
    Mirror& mirror() { return mirror_; }
    const NibWidgets& nib() const { return nib_; }
    /// The viewer that the pane's help opens in; null until it was opened once.
    HelpViewer* help() const { return help_; }

    DialogWidget* widgetsOf(platform::Window& window) override;
    void showFocus(const platform::Window& window) override { mirror_.showFocus(window); }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void makeKeys();
    bool openHelp(std::string_view book, std::string_view page, std::string_view anchor);

    host::PrintHost& host_;
    QtFace& face_;
    NibWidgets nib_;
    Mirror mirror_;
    QPointer<HelpViewer> help_; ///< its parent is the window that asked last, and may take it along
};

} // namespace specialpages::qt
