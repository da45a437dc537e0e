#include "help/ui/HelpWindow.h"

#include <QAction>
#include <QHelpContentItem>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexModel>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QKeySequence>
#include <QLineEdit>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include "help/ui/HelpBrowser.h"

namespace curvemill {

HelpWindow::HelpWindow(QHelpEngine& engine, QUrl home, QWidget* parent)
    : QWidget(parent, Qt::Window), engine_(engine), home_(std::move(home)) {
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(QStringLiteral("Curve Mill Help"));
    resize(980, 680);

    page_ = new HelpBrowser(engine_, this);
    side_ = new QTabWidget(this);
    side_->setObjectName(QStringLiteral("helpNavigation"));
    QHelpContentWidget* contents = engine_.contentWidget();
    contents->setObjectName(QStringLiteral("helpContents"));
    side_->addTab(contents, tr("&Contents"));
    side_->addTab(buildIndexTab(), tr("&Index"));
    connect(contents, &QHelpContentWidget::linkActivated, this, &HelpWindow::showTopic);
    // One click on a title opens its topic, as in every help viewer (activation needs two).
    connect(contents, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        if (const QHelpContentItem* item = engine_.contentModel()->contentItemAt(index)) {
            page_->setSource(item->url());
        }
    });
    // The tree opens fully once the archive's contents are read.
    connect(engine_.contentModel(), &QHelpContentModel::contentsCreated, this, [this, contents] {
        contents->expandAll();
        markInContents();
    });
    if (engine_.contentModel()->rowCount() > 0) {
        contents->expandAll();
    }

    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(side_);
    splitter->addWidget(page_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({260, 720});

    auto* tools = new QToolBar(this);
    tools->setObjectName(QStringLiteral("helpTools"));
    tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QAction* homeAction =
        tools->addAction(style()->standardIcon(QStyle::SP_DirHomeIcon), tr("&Home"));
    homeAction->setObjectName(QStringLiteral("helpHome"));
    homeAction->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Home));
    connect(homeAction, &QAction::triggered, this, [this] { showTopic(home_); });
    QAction* back = tools->addAction(style()->standardIcon(QStyle::SP_ArrowBack), tr("&Back"));
    back->setObjectName(QStringLiteral("helpBack"));
    back->setShortcut(QKeySequence::Back);
    back->setEnabled(false);
    connect(back, &QAction::triggered, page_, &QTextBrowser::backward);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    QAction* forward =
        tools->addAction(style()->standardIcon(QStyle::SP_ArrowForward), tr("&Forward"));
    forward->setObjectName(QStringLiteral("helpForward"));
    forward->setShortcut(QKeySequence::Forward);
    forward->setEnabled(false);
    connect(forward, &QAction::triggered, page_, &QTextBrowser::forward);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tools);
    layout->addWidget(splitter, 1);
}

QWidget* HelpWindow::buildIndexTab() {
    auto* tab = new QWidget(this);
    indexFilter_ = new QLineEdit(tab);
    indexFilter_->setObjectName(QStringLiteral("helpIndexFilter"));
    indexFilter_->setPlaceholderText(tr("Type a word to find"));
    indexFilter_->setClearButtonEnabled(true);
    QHelpIndexWidget* index = engine_.indexWidget();
    index->setObjectName(QStringLiteral("helpIndex"));
    connect(indexFilter_, &QLineEdit::textChanged, index,
            [index](const QString& text) { index->filterIndices(text); });
    // The index is read in the background: a word typed before it was ready is applied then.
    connect(engine_.indexModel(), &QHelpIndexModel::indexCreated, index, [this, index] {
        if (!indexFilter_->text().isEmpty()) {
            index->filterIndices(indexFilter_->text());
        }
    });
    // Enter in the box opens the entry the filter has selected.
    connect(indexFilter_, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
    connect(index, &QHelpIndexWidget::documentActivated, this,
            [this](const QHelpLink& document) { showTopic(document.url); });
    connect(index, &QHelpIndexWidget::documentsActivated, this,
            [this](const QList<QHelpLink>& documents) {
                if (!documents.isEmpty()) {
                    showTopic(documents.first().url);
                }
            });
    auto* layout = new QVBoxLayout(tab);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(indexFilter_);
    layout->addWidget(index, 1);
    return tab;
}

void HelpWindow::showTopic(const QUrl& address) {
    page_->setSource(address);
    markInContents();
}

void HelpWindow::markInContents() {
    QHelpContentWidget* contents = engine_.contentWidget();
    const QModelIndex entry = contents->indexOf(page_->source().adjusted(QUrl::RemoveFragment));
    if (entry.isValid()) {
        contents->setCurrentIndex(entry);
    }
}

}  // namespace curvemill
