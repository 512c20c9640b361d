#pragma once

#include <genapi/genapitypes.h>

#include <QToolBar>

class QAction;
class QActionGroup;

namespace VantoViewer {

// The GenICam visibility levels as three exclusive buttons. Choosing one asks every feature
// panel to show features up to that level; the panels report back which level they show, so
// the buttons follow whichever side changed last.
class VisibilityToolBar : public QToolBar {
    Q_OBJECT
public:
    explicit VisibilityToolBar(QWidget* parent = nullptr);
    ~VisibilityToolBar() override;

    GenApi::EVisibility level() const;
    // Shows the level without announcing it; levels beyond Guru are ignored.
    void setLevel(GenApi::EVisibility level);
    QAction* actionFor(GenApi::EVisibility level) const;

Q_SIGNALS:
    // Only on the user's choice.
    void levelChosen(GenApi::EVisibility level);

private:
    QActionGroup* m_group;     // child
    QList<QAction*> m_actions; // children of the group, by level
};

} // namespace VantoViewer
