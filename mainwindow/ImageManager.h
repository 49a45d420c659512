#pragma once

#include "action_table.h"
#include "EditBracket.h"
#include "EditHost.h"
#include "LeftoverWatch.h"
#include "page_operations.h"
#include "save_targets.h"
#include "UndoHistory.h"

#include <QHash>
#include <QImage>
#include <QList>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <array>
#include <cstdio>
#include <functional>
#include <memory>

class CommandTab;
class IdMenu;
class Q3Process;
class ImageDocument;
class ImageDocumentView;
class QAction;
class QActionGroup;
class QDialog;
class QTabWidget;
class QToolBar;
struct ActionPlace;

/// The one main window: a tab for each document, the actions, menus and tool bar, and the commands that
/// drive documents and views.
///
/// Ownership: owns the documents of its tabs; closing a tab deletes its view, then its document. Widgets
///            and actions belong to the window by Qt parentage.
/// Threads:   GUI thread only. Commands may run nested inside an open message box.
class ImageManager : public QMainWindow
{
    Q_OBJECT

public:
    explicit ImageManager(QWidget *parent = nullptr);

    /// Opens the files of an argument list, the first entry being the program itself. "-t" marks the next
    /// file as temporary: it opens as an unnamed document and is removed from disk. Ends the process with
    /// status 0 when there is no file, or none that opens; not if the window was closed meanwhile.
    void processArgs(const QStringList &args);

    /// The same for the arguments of this process, after which the files of starts that came while the window
    /// was built are opened too, before it is decided that nothing has opened.
    void processArgs(const QStringList &args, const QStringList &earlyMessages);

    /// Whether the window has been closed for good: nothing opens any more.
    [[nodiscard]] bool isClosed() const { return closed; }

    /// Makes a document of a file and a tab for it; tells the user what went wrong.
    /// @param format     format word, empty to go by the content
    /// @param temporary  the file is about to go: the document is cut loose from it and gets a name such
    ///                   as Untitled2
    /// @return true when the file has a tab
    bool load_file(const QString &path, const QString &format, bool temporary);

    /// Makes the tab for a loaded document and takes ownership of it.
    bool addDocumentTab(ImageDocument *doc);

public slots:
    /// Takes the argument message of another start and comes to the front. While an edit is under way the
    /// message waits for its end; once the window is closed it is dropped.
    void processMessage(const QString &msg);

    /// Ends the program as closing the window does, but without a question: what is not saved is lost. Work that
    /// is under way comes to its end first, open dialogs answer as if they were cancelled.
    void closeUnasked();

    void file_new();
    void file_open();
    bool file_save();
    bool file_save_as();
    void file_save_all();
    void file_print();
    void file_close();
    void file_close_all();

    void edit_undo();
    void edit_redo();

    void view_show_labels(bool v);
    void view_big_pixmaps(bool v);
    /// No action leads to it, see the action table.
    void view_show_tooltips(bool v);
    void view_movable_toolbars(bool v);
    void view_save_layout();
    void view_reset_layout();
    void view_zoom_out();
    void view_zoom_in();
    void view_zoom_by_id(int id);

    void image_depth_1_bit() { previewEdit(PageChange::Depth1Bit); }
    void image_depth_8_bit() { previewEdit(PageChange::Depth8Bit); }
    void image_depth_32_bit() { previewEdit(PageChange::Depth32Bit); }
    void image_invert() { previewEdit(PageChange::Invert); }
    void image_brightness() { previewEdit(PageChange::Brightness); }
    void image_contrast() { previewEdit(PageChange::Contrast); }
    void image_rotate_90() { previewEdit(PageChange::Rotate90); }
    void image_rotate_180() { previewEdit(PageChange::Rotate180); }
    void image_rotate_270() { previewEdit(PageChange::Rotate270); }
    void image_flip_vertically() { previewEdit(PageChange::FlipVertically); }
    void image_flip_horizontally() { previewEdit(PageChange::FlipHorizontally); }
    void image_scale_horizontally();
    void image_scale_vertically();
    void image_scale_proportionally();
    void image_resize();
    void image_crop();
    void image_properties();

    /// Hand the first page to a program outside, see ToolSettings.
    void start_graphics_editor();
    void start_OCR();
    void configure_tools();
    void on_lpr_finished();
    /// Mails the file of the current document, see MailForm.
    void send();
    /// Uploads the first page, whatever page is on show, see FtpForm.
    void upload_ftp();

    /// Opens the menu of the tool button that sent the signal. No button is connected to it.
    void OnToolButtonActivated();
    void tabChanged(QWidget *tab);

protected:
    void closeEvent(QCloseEvent *event) override;

private slots:
    void help_context(); ///< no entry, key or button leads here
    void documentModifiedStateChanged(bool modified);
    void updateImageCropControls();
    void onStatusChanged(const QString &text);

private:
    /// What a scale command asks for, and which sides its factor applies to.
    struct ScaleCommand
    {
        QString caption;
        QString label;
        QString prompt;
        const char *name;
        bool horizontal;
        bool vertical;
    };

    [[nodiscard]] ImageDocumentView *currentView() const;
    [[nodiscard]] ImageDocument *currentDocument() const;
    [[nodiscard]] QImage currentPageImage() const;
    [[nodiscard]] QImage firstPageImage() const;

    void makeActions();
    void makeAction(const ActionRow &row, const QHash<QLatin1StringView, QActionGroup *> &groups);
    void makeZoomActions();
    QAction *makeGroupMenu(QActionGroup *group);
    void makePlaces();
    void makeMenu(QMenu *menu, const ActionPlace &place);
    void makeToolBar(const ActionPlace &place);
    void placeActions(QWidget *widget, const ActionPlace &place);
    void readSettings();
    void connectActions();
    void enableActions(Need need, bool on);

    void makeBracket();
    // The steps of the bracket one by one, see EditBracket. Only updateActions() has a caller.
    void freezeUi() { bracket->freezeUi(); }
    void thawUi() { bracket->thawUi(); }
    void endEdit() { bracket->endEdit(); }
    void updateActions() { bracket->updateActions(); }
    [[nodiscard]] bool saveUndoState() { return bracket->saveUndoState(); }
    [[nodiscard]] bool beginEdit() { return bracket->beginEdit(); }
    void finishEdit(bool ok) { bracket->finishEdit(ok); }
    [[nodiscard]] bool applyHistory(HistoryStep step, uint steps) { return bracket->applyHistory(step, steps); }
    bool runEdit(const std::function<bool(uint)> &operation);
    [[nodiscard]] bool isAccepted(QDialog &dialog);
    void previewEdit(PageChange change);
    void scalePage(const ScaleCommand &command);

    void updateDocumentActions();
    void updateZoomControls();
    void updateTabTitle(ImageDocumentView *view, bool modified);
    void closeCurrentTab();
    void closeTab(ImageDocumentView *view);
    void closeAllTabs();
    /// What became of a file.
    enum class LoadOutcome {
        Failed,
        Done, ///< it has a tab, or was copied instead
        CopyFailed, ///< it was to be copied instead, and is the only one still
        CopiedOntoItself,
    };

    [[nodiscard]] static bool isOpened(LoadOutcome outcome);
    [[nodiscard]] bool openFiles(const QStringList &words);
    bool openMessage(const QString &msg);
    void endForWantOfFiles();
    void bringUp();
    void offerToSaveRefused(ImageDocumentView *view);
    [[nodiscard]] LoadOutcome openFile(const QString &path, const QString &format, bool temporary);
    [[nodiscard]] LoadOutcome reportFailedLoad(ImageDocument *document, const QString &name);
    [[nodiscard]] bool askToSaveInstead();

    bool save_file(ImageDocument *doc, const QString &filePath, const QString &format);
    bool saveTab(const CommandTab &tab, const SaveTarget &target, bool replaces);
    bool saveWithoutKeptPages(const CommandTab &tab, const SaveTarget &target);
    [[nodiscard]] bool confirmLoss(const ImageDocument &document);
    void saveMerged(const QString &path);
    void saveEach(const SaveTargets &targets);
    void saveInWalk(const CommandTab &tab, const SaveTarget &target);
    [[nodiscard]] bool confirmReplace(const QString &fileName);
    [[nodiscard]] QMessageBox::StandardButton askToSave(const ImageDocument *document);
    [[nodiscard]] bool confirmSave();
    [[nodiscard]] bool confirmSaveAll();
    [[nodiscard]] QList<ImageDocument *> openDocuments() const;
    [[nodiscard]] ImageDocumentView *viewAt(int index) const;
    [[nodiscard]] bool showTabBut(const QList<QPointer<ImageDocumentView>> &views);
    void showNextTab();

    using WritePage = bool (*)(const QString &path, const QImage &page);
    [[nodiscard]] bool savePrintFile(const QString &path);
    [[nodiscard]] bool saveForTool(const QString &path, WritePage write);
    void warnOfTool(const QString &title, const QString &text);

    Q3Process *lprProcess = nullptr; ///< the print job under way, also where no lpr could be started
    std::array<char, L_tmpnam + sizeof ".png"> printFile{}; ///< the job's file, empty for none
    std::unique_ptr<LeftoverWatch> printFileWatch; ///< of that file, as long as the job
    UndoHistory undoHistory; ///< shared by all tabs
    QHash<QLatin1StringView, QAction *> actions; ///< every action by its name in the action table
    std::array<int, 8> zoomIds = {}; ///< menu ids of the zoom actions, by zoom index
    IdMenu *zoomMenu = nullptr;
    QActionGroup *zoomGroup = nullptr;
    QToolBar *toolBar = nullptr;
    QTabWidget *tabWidget = nullptr;
    std::unique_ptr<EditHost> editHost; ///< the window as the bracket knows it
    std::unique_ptr<EditBracket> bracket; ///< around each change of a page
    bool viewStatusEnabled = true; ///< whether status texts of the views are shown
    bool closed = false; ///< the window has gone for good
};
