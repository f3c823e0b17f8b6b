#pragma once

#include "EditorPage.h"

#include <QToolButton>

class QGridLayout;
class QHBoxLayout;
class QMenu;

namespace orvim {

/// A button of a page's toolbar: the symbol with its title below. Where there is little room it gives up what its title
/// leaves free at the sides.
class EditorToolbarButton : public QToolButton
{
    Q_OBJECT

public:
    EditorToolbarButton(const QString& title, const QString& systemImage, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    int titleWidth() const;
};

/// The band above a page: its symbol and title, its drop-down menus, then its toolbar. Where these do not fit side by
/// side the toolbar stands below, and then the title gives way.
class EditorPageHeader : public QWidget
{
    Q_OBJECT

public:
    explicit EditorPageHeader(EditorPage page, QWidget* parent = nullptr);

    /// A new drop-down menu behind the ones before it; the page fills it.
    QMenu* addMenu(const QString& title);
    /// A new toolbar button behind the ones before it.
    EditorToolbarButton* addToolbarButton(const QString& title, const QString& systemImage);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;

private:
    void arrange();

    QGridLayout* m_lines = nullptr;
    QHBoxLayout* m_firstLine = nullptr;
    QWidget* m_toolbarBox = nullptr;
    bool m_isToolbarBelow = false;
    QHBoxLayout* m_menus = nullptr;
    QHBoxLayout* m_toolbar = nullptr;
};

/// What every page stands in: its header band and, under it, its content.
class PageScaffold : public QWidget
{
    Q_OBJECT

public:
    explicit PageScaffold(EditorPage page, QWidget* parent = nullptr);

    EditorPage page() const { return m_page; }
    EditorPageHeader& header() const { return *m_header; }
    /// Takes `content` over and gives it all the room under the header.
    void setContent(QWidget* content);

private:
    EditorPage m_page;
    EditorPageHeader* m_header = nullptr;
};

} // namespace orvim
