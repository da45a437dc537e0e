#include "shell/ui/CommandActions.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "shell/Mnemonics.h"
#include "shell/ui/ToolbarIcons.h"

namespace curvemill {

namespace {

QString qs(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The text of an entry without its mnemonic marker, kept beside the shown one.
const char* const kPlainText = "plainText";

void setPlainText(QAction& action, const QString& text) {
    action.setProperty(kPlainText, text);
}

// The menu of a path such as "Zoom/Zoom In", created on first use so menus keep table order.
QMenu* menuFor(QMenuBar& bar, std::map<QString, QMenu*>& menus, const QString& path) {
    if (auto found = menus.find(path); found != menus.end()) {
        return found->second;
    }
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    QMenu* menu = nullptr;
    if (slash < 0) {
        menu = bar.addMenu(path);
    } else {
        menu = menuFor(bar, menus, path.left(slash))->addMenu(path.mid(slash + 1));
    }
    menu->setObjectName(path);
    setPlainText(*menu->menuAction(), menu->title());
    menus[path] = menu;
    return menu;
}

}  // namespace

CommandActions::CommandActions(QMainWindow& window) : window_(window), menuBar_(window.menuBar()) {
    toolBar_ = window.addToolBar(QStringLiteral("Commands"));
    toolBar_->setObjectName(QStringLiteral("toolbar"));
    toolBar_->setMovable(false);
    toolBar_->setIconSize(QSize(24, 24));
    mouseModes_ = new QActionGroup(&window);
    mouseModes_->setExclusive(true);

    std::map<QString, QMenu*> menus;
    QString lastToolbarGroup;
    for (const CommandRow& row : commandTable()) {
        auto* action = new QAction(qs(menuLabel(row)), &window);
        action->setObjectName(QString::number(row.id));
        setPlainText(*action, action->text());
        if (!row.key.empty()) {
            action->setShortcut(QKeySequence(qs(row.key)));
            action->setShortcutContext(Qt::WindowShortcut);
        }
        if (!row.tooltip.empty()) {
            action->setToolTip(qs(row.tooltip));
            action->setIcon(toolbarIcon(row.id));
        }
        if (row.command == Command::MouseMove || row.command == Command::MouseSelect) {
            action->setCheckable(true);
            action->setChecked(row.command == Command::MouseMove);
            mouseModes_->addAction(action);
        }
        if (row.command == Command::DrawGrid || row.command == Command::ShowDrawingProcess) {
            action->setCheckable(true);
        }
        // Its entries are the documents of the moment, filled in by whoever keeps the list.
        if (row.command == Command::RecentGraphs) {
            auto* recent = new QMenu(&window);
            recent->setObjectName(QStringLiteral("File/Recent Graphs"));
            action->setMenu(recent);
        }
        actions_[row.command] = action;

        switch (row.place) {
            case CommandPlace::Menu: {
                const QString path = qs(row.menu);
                if (path.isEmpty()) {
                    window.menuBar()->addAction(action);
                } else {
                    QMenu* menu = menuFor(*window.menuBar(), menus, path);
                    if (row.command == Command::Exit || row.command == Command::SaveNewEntries ||
                        row.command == Command::OpenGraph || row.command == Command::SaveAsFile) {
                        menu->addSeparator();
                    }
                    menu->addAction(action);
                }
                if (!row.tooltip.empty()) {
                    const QString group = path.section(QLatin1Char('/'), 0, 0);
                    if (!lastToolbarGroup.isEmpty() && group != lastToolbarGroup) {
                        toolBar_->addSeparator();
                    }
                    lastToolbarGroup = group;
                    toolBar_->addAction(action);
                }
                break;
            }
            case CommandPlace::ToolbarOnly:
                if (row.command == Command::ReturnToTitleButton ||
                    row.command == Command::MouseMove || row.command == Command::RotateRight ||
                    row.command == Command::DemoFailure) {
                    toolBar_->addSeparator();
                }
                toolBar_->addAction(action);
                break;
            case CommandPlace::AcceleratorOnly:
                window.addAction(action);
                break;
        }
    }
}

void CommandActions::bind(Command command, std::function<void()> work) {
    work_[command] = std::move(work);
    QObject::connect(actions_.at(command), &QAction::triggered, &window_,
                     [this, command] { run(command); });
}

void CommandActions::run(Command command) const {
    if (const auto found = work_.find(command); found != work_.end()) {
        found->second();
    }
}

QAction* CommandActions::action(Command command) const {
    return actions_.at(command);
}

QAction* CommandActions::action(int id) const {
    const CommandRow* row = findCommand(id);
    return row == nullptr ? nullptr : action(row->command);
}

void CommandActions::apply(const ShellState& state) {
    for (const CommandRow& row : commandTable()) {
        QAction* action = actions_.at(row.command);
        action->setEnabled(work_.contains(row.command) && row.available(state));
        const CommandLook look = commandLook(row, state);
        const QString text = qs(look.text.substr(0, look.text.find('\t')));
        setPlainText(*action, text);
        action->setText(text);
        if (!look.tooltip.empty()) {
            action->setToolTip(qs(look.tooltip));
        }
        if (row.command == Command::DrawGrid) {
            action->setChecked(state.gridOn);
        }
        if (row.command == Command::ShowDrawingProcess) {
            action->setChecked(state.drawingProcess);
        }
        if (row.command == Command::MouseMove || row.command == Command::MouseSelect) {
            action->setChecked(state.selectArea == (row.command == Command::MouseSelect));
        }
    }
    markMnemonics();
}

void CommandActions::markMnemonics() {
    markMnemonics(*menuBar_);
    for (QMenu* menu : menuBar_->findChildren<QMenu*>()) {
        markMnemonics(*menu);
    }
}

void CommandActions::markMnemonics(QWidget& menu) {
    std::vector<QAction*> entries;
    std::vector<std::string> labels;
    for (QAction* action : menu.actions()) {
        const QVariant plain = action->property(kPlainText);
        if (!action->isSeparator() && plain.isValid()) {
            entries.push_back(action);
            labels.push_back(plain.toString().toStdString());
        }
    }
    const std::vector<std::string> marked = assignMnemonics(labels);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        // A submenu's entry shows its menu's title.
        if (QMenu* submenu = entries[i]->menu()) {
            submenu->setTitle(QString::fromStdString(marked[i]));
        } else {
            entries[i]->setText(QString::fromStdString(marked[i]));
        }
    }
}

}  // namespace curvemill
