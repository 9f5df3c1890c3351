// The real window, offscreen: a small form shown through QtPlatform must look
// and behave as its model says, and the user's actions must reach the model.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTextCursor>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <memory>
#include <random>
#include <set>
#include <tuple>

#include "common/Program.h"
#include "forms/Form.h"
#include "forms/Input.h"
#include "qt/CardArt.h"
#include "qt/FormWindow.h"
#include "qt/PeerWidgets.h"
#include "qt/QtPlatform.h"
#include "qt/QtTestApp.h"
#include "scores/frmHiScoreName.h"
#include "shell/Startup.h"
#include "shell/frmSelect.h"

namespace corvanna {
namespace {

// A key as the keyboard sends it to the widget with the focus.
void press(QWidget* w, int key, const QString& text = {}) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(w, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(w, &up);
}

QRgb rgbOf(Color c) {
    return qRgb((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF);
}

bool near(QRgb a, QRgb b, int tolerance = 24) {
    return std::abs(qRed(a) - qRed(b)) <= tolerance &&
           std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

class QtRender : public QtFormTest {
protected:
    void SetUp() override {
        QtFormTest::SetUp();
        form->setCaption("Test Form");
        form->setBackColor(colors::FeltGreen);
        form->setBounds(600, 450, 6000 + kFrameWidthTwips,
                        4500 + kFrameHeightTwips + kMenuBarTwips);
    }
    FormWindow& window() {
        FormWindow* w = platform->windowOf(*form);
        EXPECT_NE(w, nullptr);
        return *w;
    }
    template <class W>
    W* widget(const Control& c) {
        return qobject_cast<W*>(window().widgetOf(c));
    }
};

TEST_F(QtRender, WindowShowsTheModelAndFollowsIt) {
    Control& lbl = form->addControl(ControlKind::Label, "lblMessage");
    lbl.setCaption("Score && more");
    lbl.move(150, 150, 3000, 300);
    Control& cmd = form->addControl(ControlKind::CommandButton, "cmdPlay");
    cmd.setCaption("&Play");
    cmd.setToolTipText("Start a round");
    cmd.move(150, 600, 1200, 375);
    int played = 0;
    cmd.Click = [&] { ++played; };
    Control& img = form->addControl(ControlKind::Image, "imgCard");
    img.move(1500, 600, 1065, 1440);
    img.setPicture("12H");
    auto& bar = form->add<StatusBar>("sbStatus", 3);
    bar.move(0, 0, 6000, 375);
    bar.setPanelText(1, "Round 1");
    Menu& game = form->addMenu("mnuGame", "&Game");
    Menu& newGame = form->addMenu("mnuGameNew", "&New Game", &game);
    form->addMenu("mnuGameSep", "-", &game);
    Menu& sound = form->addMenu("mnuGameSound", "&Sound", &game);
    int newGames = 0;
    newGame.Click = [&] { ++newGames; };
    sound.Click = [&] { sound.setChecked(!sound.checked()); };

    platform->showForm(*form, false);
    FormWindow& w = window();
    EXPECT_TRUE(w.isVisible());
    EXPECT_EQ(w.windowTitle(), "Test Form");
    // The client area is the form's ScaleWidth x ScaleHeight in pixels.
    EXPECT_EQ(w.clientArea()->size(), QSize(400, 300));

    auto* label = widget<QLabel>(lbl);
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), "Score && more");  // shown as it is, no mnemonic
    EXPECT_EQ(label->geometry(), QRect(10, 10, 200, 20));
    auto* button = widget<QPushButton>(cmd);
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(), "&Play");
    EXPECT_EQ(button->toolTip(), "Start a round");
    EXPECT_EQ(button->geometry(), QRect(10, 40, 80, 25));

    // The menu bar carries the captions with their mnemonics, and a separator.
    auto* menuBar = qobject_cast<QMenuBar*>(w.menuWidget());
    ASSERT_NE(menuBar, nullptr);
    ASSERT_EQ(menuBar->actions().size(), 1);
    QAction* gameAction = menuBar->actions()[0];
    EXPECT_EQ(gameAction->text(), "&Game");
    ASSERT_NE(gameAction->menu(), nullptr);
    const auto items = gameAction->menu()->actions();
    ASSERT_EQ(items.size(), 3);
    EXPECT_EQ(items[0]->text(), "&New Game");
    EXPECT_TRUE(items[1]->isSeparator());
    items[0]->trigger();
    EXPECT_EQ(newGames, 1);
    // A tick is the model's: the item's Click sets it, the menu shows it.
    EXPECT_FALSE(items[2]->isChecked());
    for (bool on : {true, false}) {
        items[2]->trigger();
        EXPECT_EQ(std::pair(sound.checked(), items[2]->isChecked()), std::pair(on, on));
    }
    newGame.setEnabled(false);
    EXPECT_FALSE(items[0]->isEnabled());

    // The status bar is a real one, along the bottom of the client area.
    auto* status = widget<QStatusBar>(bar);
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(status->geometry(), QRect(0, 275, 400, 25));
    const auto panels = status->findChildren<QLabel*>();
    ASSERT_EQ(panels.size(), 3);
    EXPECT_TRUE(std::any_of(panels.begin(), panels.end(),
                            [](QLabel* p) { return p->text() == "Round 1"; }));

    // A click on the widget is the model's Click.
    button->click();
    EXPECT_EQ(played, 1);
    // The model's changes show.
    form->setCaption("Renamed");
    EXPECT_EQ(w.windowTitle(), "Renamed");
    lbl.setCaption("Time up");
    EXPECT_EQ(label->text(), "Time up");
    cmd.setEnabled(false);
    EXPECT_FALSE(button->isEnabled());
    button->click();  // a disabled button takes no click
    EXPECT_EQ(played, 1);
    cmd.setVisible(false);
    EXPECT_FALSE(button->isVisible());
    cmd.move(300, 300, 1500, 450);
    EXPECT_EQ(button->geometry(), QRect(20, 20, 100, 30));

    // A control added while the window is up gets its widget, in front.
    Control& late = form->addControl(ControlKind::CheckBox, "chkLate");
    late.setCaption("Late");
    late.move(150, 1500, 1500, 300);
    auto* check = widget<QCheckBox>(late);
    ASSERT_NE(check, nullptr);
    EXPECT_EQ(check->text(), "Late");
    check->click();  // the model flips it, the box follows
    EXPECT_TRUE(late.checked());
    EXPECT_TRUE(check->isChecked());
    late.setChecked(false);
    EXPECT_FALSE(check->isChecked());

    // The card is drawn where the image is: white face in the middle of it.
    const QImage shot = w.clientArea()->grab().toImage();
    const QPoint cardPx(100 + 35, 40 + 12);  // left of the centre, inside the face
    EXPECT_TRUE(near(shot.pixel(cardPx), qRgb(255, 255, 255), 40))
        << std::hex << shot.pixel(cardPx);
    EXPECT_TRUE(near(shot.pixel(395, 150), rgbOf(colors::FeltGreen)))
        << std::hex << shot.pixel(395, 150);
}

TEST_F(QtRender, WindowSizeAndStateGoBothWays) {
    int resizes = 0;
    form->Resize = [&] { ++resizes; };
    Control& lbl = form->addControl(ControlKind::Label, "lblMessage");
    lbl.setCaption("x");
    platform->showForm(*form, false);
    FormWindow& w = window();
    ASSERT_EQ(w.clientArea()->size(), QSize(400, 320));  // no menu bar: its row is client

    // The user makes it bigger: the form's outer size follows and Resize runs.
    const int before = form->width();
    resizes = 0;
    w.resize(w.width() + 30, w.height() + 15);
    runLoop(20);
    EXPECT_EQ(w.clientArea()->size(), QSize(430, 335));
    EXPECT_EQ(form->width(), before + 30 * kTwipsPerPixel);
    EXPECT_EQ(form->scaleHeight(), 335 * kTwipsPerPixel);
    EXPECT_GE(resizes, 1);

    // The program sets a size: the window takes it, with no echo back to the model.
    resizes = 0;
    form->setSize(9000 + kFrameWidthTwips, 6000 + kFrameHeightTwips);
    EXPECT_EQ(resizes, 1);
    runLoop(20);
    EXPECT_EQ(w.clientArea()->size(), QSize(600, 400));
    EXPECT_EQ(resizes, 1);
    EXPECT_EQ(form->scaleWidth(), 9000);

    // Minimised and restored by the user: the model's WindowState follows.
    w.showMinimized();
    runLoop(10);
    EXPECT_EQ(form->windowState(), WindowState::Minimized);
    w.showNormal();
    runLoop(10);
    EXPECT_EQ(form->windowState(), WindowState::Normal);

    // Window state from the model, and hourglass pointer.
    form->setWindowState(WindowState::Minimized);
    EXPECT_TRUE(w.isMinimized());
    form->setWindowState(WindowState::Normal);
    EXPECT_FALSE(w.isMinimized());
    form->setMousePointer(MousePointer::Hourglass);
    EXPECT_EQ(w.cursor().shape(), Qt::WaitCursor);
    form->setMousePointer(MousePointer::Default);
    EXPECT_NE(w.cursor().shape(), Qt::WaitCursor);
}

TEST_F(QtRender, SleepHoldsTimersAndTheCloseBox) {
    auto& t = form->add<Timer>("Timer1", -1, 15);
    int ticks = 0;
    bool tickInsideWait = false;
    t.OnTimer = [&] {
        ++ticks;
        tickInsideWait = tickInsideWait || platform->inWait();
    };
    int closeAsks = 0, presses = 0;
    platform->onCloseRequest = [&](Form&) { ++closeAsks; };
    Control& ok = form->addControl(ControlKind::CommandButton, "cmdOK");
    ok.Click = [&] { ++presses; };
    form->setDefaultButton(&ok);
    platform->showForm(*form, false);
    FormWindow& w = window();

    t.start();
    // The close box and Enter pressed in the middle of the wait.
    QTimer::singleShot(10, &w, [&] {
        w.close();
        press(&w, Qt::Key_Return);
    });
    platform->sleep(60);  // several ticks fall due
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(closeAsks, 0);
    EXPECT_EQ(presses, 0);
    EXPECT_TRUE(w.isVisible());  // the model decides; nothing closed the window
    t.setInterval(60000);        // no fresh tick from here on
    platform->doEvents();
    EXPECT_EQ(ticks, 1);  // what fell due ticks once
    EXPECT_EQ(closeAsks, 1);
    EXPECT_EQ(presses, 1);
    platform->doEvents();
    EXPECT_EQ(ticks, 1);
    EXPECT_FALSE(tickInsideWait);

    // Back in the loop the held tick comes by itself.
    t.setInterval(15);
    platform->sleep(40);
    EXPECT_EQ(ticks, 1);
    t.setInterval(60000);
    runLoop(20);
    EXPECT_EQ(ticks, 2);

    // A stopped timer forgets what it held.
    t.setInterval(15);
    platform->sleep(40);
    t.stop();
    runLoop(20);
    EXPECT_EQ(ticks, 2);

    // A timer of an unloaded form never runs again, even when its handler restarts it.
    t.OnTimer = [&] { ++ticks; };
    t.setInterval(10);
    t.start();
    platform->formUnloaded(*form);
    EXPECT_EQ(platform->windowOf(*form), nullptr);
    t.start();
    runLoop(30);
    EXPECT_EQ(ticks, 2);
}

TEST_F(QtRender, ModalDialogRunsUntilHiddenWithTimersGoing) {
    platform->showForm(*form, false);
    auto& tick = form->add<Timer>("Timer1", -1, 10);
    int ticks = 0;
    tick.OnTimer = [&] { ++ticks; };
    tick.start();

    extra.push_back(std::make_unique<Form>(*platform, "frmDialog"));
    Form& dialog = *extra.back();
    dialog.setCaption("Dialog");
    Control& ok = dialog.addControl(ControlKind::CommandButton, "cmdOK");
    ok.setCaption("OK");
    ok.Click = [&] { platform->hideForm(dialog); };
    Control& behind = form->addControl(ControlKind::CommandButton, "cmdBehind");
    int behindClicks = 0;
    behind.Click = [&] { ++behindClicks; };

    bool ownerEnabledDuring = true;
    // The dialog is closed once the game timer has ticked under it, however busy the
    // machine is.
    QTimer closer;
    closer.setInterval(20);
    QObject::connect(&closer, &QTimer::timeout, [&] {
        if (ticks < 2)
            return;
        closer.stop();
        ownerEnabledDuring = form->enabled();
        EXPECT_FALSE(userClick(behind));  // the form behind takes no click
        auto* okButton = qobject_cast<QPushButton*>(platform->windowOf(dialog)->widgetOf(ok));
        ASSERT_NE(okButton, nullptr);
        okButton->click();
    });
    closer.start();
    platform->showForm(dialog, true);
    EXPECT_FALSE(ownerEnabledDuring);
    EXPECT_FALSE(dialog.visible());
    EXPECT_TRUE(form->enabled());
    EXPECT_EQ(behindClicks, 0);
    EXPECT_GE(ticks, 2);  // game timers keep running under a dialog
}

TEST_F(QtRender, TextListAndComboFeedTheModel) {
    auto& name = form->add<TextBox>("txtName", -1, nullptr);
    name.setMaxLength(5);
    name.setText("Ann");
    int changes = 0;
    name.Change = [&] { ++changes; };
    auto& combo = form->add<ListControl>(ControlKind::ComboBox, "cboCountry", -1, nullptr);
    combo.addItem("Canada");
    combo.addItem("Norway");
    int comboClicks = 0;
    combo.Click = [&] { ++comboClicks; };
    auto& list = form->add<ListControl>(ControlKind::ListBox, "lstNames", -1, nullptr);
    list.addItem("one");
    list.addItem("two");
    list.addItem("three");
    int enters = 0, doubleClicks = 0;
    name.KeyEnter = [&] { ++enters; };
    list.DblClick = [&] { ++doubleClicks; };
    auto& sample = form->add<TextBox>("txtSample", -1, nullptr);
    sample.setLocked(true);
    auto& notes = form->add<TextBox>("txtNotes", -1, nullptr);
    notes.setMultiLine(true);
    Control& hand = form->addControl(ControlKind::Image, "imgHand");
    hand.setMouseIcon("POINTER");
    platform->showForm(*form, false);

    auto* edit = widget<QLineEdit>(name);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(), "Ann");
    edit->end(false);
    edit->insert("ette");  // as typed: the model keeps its MaxLength
    EXPECT_EQ(name.text(), "Annet");
    EXPECT_EQ(edit->text(), "Annet");
    EXPECT_EQ(changes, 1);
    name.setText("Bo");
    EXPECT_EQ(edit->text(), "Bo");
    EXPECT_EQ(changes, 2);
    name.setFocus();
    press(edit, Qt::Key_Return);
    EXPECT_EQ(enters, 1);
    EXPECT_FALSE(edit->isReadOnly());
    auto* shown = widget<QLineEdit>(sample);
    ASSERT_NE(shown, nullptr);
    EXPECT_TRUE(shown->isReadOnly());
    sample.setLocked(false);
    EXPECT_FALSE(shown->isReadOnly());

    // Several lines come back to the model as typed, line breaks and all.
    auto* lines = widget<QPlainTextEdit>(notes);
    ASSERT_NE(lines, nullptr);
    lines->insertPlainText("first\nsecond");
    EXPECT_EQ(notes.text(), "first\nsecond");
    notes.setText("set by the program");
    EXPECT_EQ(lines->toPlainText(), "set by the program");
    // A text with CR LF line ends (the rules) shows its lines, and the places in it go
    // both ways: byte 7 of the model is the "b" after the second line break.
    notes.setText("a\r\nxy\r\nb");
    EXPECT_EQ(lines->toPlainText(), "a\nxy\nb");
    notes.select(7, 1);
    EXPECT_EQ(lines->textCursor().selectedText(), "b");
    QTextCursor caret = lines->textCursor();
    caret.setPosition(2);  // before the "x", as a click there puts it
    lines->setTextCursor(caret);
    EXPECT_EQ(std::pair(notes.selStart, notes.selLength), std::pair(3, 0));
    EXPECT_EQ(notes.text(), "a\r\nxy\r\nb");
    // Its focus ring stands round it, clear of the text and the scroll bar.
    notes.setFocus();
    EXPECT_TRUE(window().focusRing()->geometry().contains(lines->geometry()));
    EXPECT_NE(window().focusRing()->geometry(), lines->geometry());

    auto* box = widget<QComboBox>(combo);
    ASSERT_NE(box, nullptr);
    ASSERT_EQ(box->count(), 2);
    EXPECT_EQ(box->currentIndex(), -1);
    box->setCurrentIndex(1);
    emit box->activated(1);  // the user's choice
    EXPECT_EQ(combo.listIndex(), 1);
    EXPECT_EQ(comboClicks, 1);
    combo.setListIndex(0);
    EXPECT_EQ(box->currentIndex(), 0);

    auto* rows = widget<QListWidget>(list);
    ASSERT_NE(rows, nullptr);
    ASSERT_EQ(rows->count(), 3);
    rows->setCurrentRow(2);  // as a click on the third row does
    EXPECT_EQ(list.listIndex(), 2);
    emit rows->itemDoubleClicked(rows->item(2));
    EXPECT_EQ(doubleClicks, 1);
    list.clear();
    EXPECT_EQ(rows->count(), 0);

    QWidget* handWidget = window().widgetOf(hand);
    ASSERT_NE(handWidget, nullptr);
    EXPECT_EQ(handWidget->cursor().shape(), Qt::PointingHandCursor);
    hand.setMouseIcon("");
    EXPECT_NE(handWidget->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(QtRender, DrawingBoxPaintsPiesAndLines) {
    auto& pic = form->add<PictureBox>("picClock", -1, nullptr);
    pic.setBackColor(colors::White);
    pic.move(0, 0, 1500, 1500);  // 100 x 100 px
    // A quarter from twelve o'clock clockwise: the top right quarter.
    pic.Pie(750, 750, 600, 0, 90, colors::Black, colors::Red);
    pic.Line(0, 1350, 1500, 1350, colors::Blue);
    pic.endPaint();
    platform->showForm(*form, false);
    QWidget* w = window().widgetOf(pic);
    ASSERT_NE(w, nullptr);
    const QImage img = w->grab().toImage();
    ASSERT_EQ(img.size(), QSize(100, 100));
    EXPECT_TRUE(near(img.pixel(65, 35), qRgb(255, 0, 0))) << std::hex << img.pixel(65, 35);
    EXPECT_TRUE(near(img.pixel(35, 35), qRgb(255, 255, 255))) << std::hex << img.pixel(35, 35);
    EXPECT_TRUE(near(img.pixel(35, 65), qRgb(255, 255, 255))) << std::hex << img.pixel(35, 65);
    EXPECT_TRUE(near(img.pixel(50, 90), qRgb(0, 0, 255))) << std::hex << img.pixel(50, 90);
    // Cls and a new picture: the old wedge goes.
    pic.Cls();
    pic.Pie(750, 750, 600, 180, 90, colors::Black, colors::Green);
    pic.endPaint();
    const QImage again = w->grab().toImage();
    EXPECT_TRUE(near(again.pixel(65, 35), qRgb(255, 255, 255))) << std::hex << again.pixel(65, 35);
    EXPECT_TRUE(near(again.pixel(35, 65), qRgb(0, 255, 0))) << std::hex << again.pixel(35, 65);
}

TEST_F(QtRender, StackingShowsTheModelsOrderWhereControlsOverlap) {
    // Cards in a row, some overlapping; sent back, brought up, moved and hidden at random.
    std::vector<Control*> cards;
    for (int i = 0; i < 6; ++i) {
        Control& c = form->addControl(ControlKind::Image, "imgCard", i);
        c.setPicture(std::to_string(i + 1) + "S");
        c.move(i * 600, 300, 1035, 1410);
        cards.push_back(&c);
    }
    platform->showForm(*form, false);
    std::mt19937 rng(7);
    for (int step = 0; step < 200; ++step) {
        Control& c = *cards[rng() % cards.size()];
        switch (rng() % 4) {
            case 0: c.sendToBack(); break;
            case 1: c.bringToFront(); break;
            case 2: c.setLeft(static_cast<int>(rng() % 4000)); break;
            default: c.setVisible(!c.visible()); break;
        }
        // Of two shown cards that overlap, the one higher in the model is drawn over the other.
        const QObjectList& order = window().clientArea()->children();
        for (Control* a : cards)
            for (Control* b : cards) {
                QWidget *wa = window().widgetOf(*a), *wb = window().widgetOf(*b);
                if (a->zOrder() < b->zOrder() && a->visible() && b->visible() &&
                    wa->geometry().intersects(wb->geometry())) {
                    ASSERT_LT(order.indexOf(wa), order.indexOf(wb)) << "step " << step;
                }
            }
    }
}

TEST_F(QtRender, QuitEndsTheLoopWithoutAskingOpenWindowsToClose) {
    int closeRequests = 0;
    platform->onCloseRequest = [&](Form&) { ++closeRequests; };
    platform->showForm(*form, false);
    // A closed window would ask its unload question of a user who is leaving.
    QTimer::singleShot(2000, [] { QCoreApplication::exit(7); });
    platform->quit();
    EXPECT_EQ(qtTestApp().exec(), 0);
    EXPECT_EQ(closeRequests, 0);
    EXPECT_TRUE(window().isVisible());
    platform->onCloseRequest = nullptr;
}

TEST_F(QtRender, ProgressBarLineBorderAndThePlayCursorFollowTheModel) {
    auto& bar = form->add<ProgressBar>("ProgressBar1", -1, nullptr);
    bar.move(150, 150, 3000, 300);
    bar.setMax(40);
    bar.setMin(5);
    auto& cross = form->add<LineControl>("X1", -1, nullptr);
    cross.setBorderColor(colors::Red);
    cross.setBorderWidth(3);
    cross.setEnds(3000, 600, 1500, 2100);  // (200, 40) to (100, 140) in pixels
    Control& card = form->addControl(ControlKind::Image, "imgCard");
    card.move(3600, 600, 1065, 1455);  // 71 by 97 at (240, 40)
    card.setPicture("12H");
    int cardClicks = 0, goes = 0;
    card.Click = [&] { ++cardClicks; };
    Control& cmd = form->addControl(ControlKind::CommandButton, "cmdGo");
    cmd.move(150, 3600, 1200, 375);
    cmd.Click = [&] { ++goes; };
    form->setKeyboardPlay(true);
    platform->showForm(*form, false);
    FormWindow& w = window();

    auto* progress = widget<QProgressBar>(bar);
    ASSERT_NE(progress, nullptr);
    EXPECT_EQ(std::tuple(progress->minimum(), progress->maximum(), progress->value()),
              std::tuple(5, 40, 5));
    bar.setValue(39);
    EXPECT_EQ(progress->value(), 39);
    bar.setVisible(false);
    EXPECT_FALSE(progress->isVisible());

    // The cross is red at its middle; the card's single border is dark.
    const QImage before = w.clientArea()->grab().toImage();
    card.setBorder(true);
    const QImage shot = w.clientArea()->grab().toImage();
    EXPECT_TRUE(near(shot.pixel(150, 90), rgbOf(colors::Red), 60))
        << std::hex << shot.pixel(150, 90);
    EXPECT_TRUE(near(shot.pixel(240, 90), qRgb(0x20, 0x20, 0x20), 16))
        << std::hex << shot.pixel(240, 90);
    EXPECT_NE(before.pixel(240, 90), shot.pixel(240, 90));

    // Up from the focused button: the cursor is round the card, outside it, and the focus
    // ring gives way to it. Space and Enter click the card, not the focused button.
    auto* button = widget<QPushButton>(cmd);
    for (int i = 0; i < 100 && !button->hasFocus(); ++i)
        runLoop(10);
    ASSERT_TRUE(button->hasFocus());
    press(button, Qt::Key_Up);
    PlayCursorFrame* frame = w.playCursorFrame();
    ASSERT_TRUE(frame->isVisible());
    const int out = PlayCursorFrame::bandWidth(QSize(71, 97)) + 2;
    EXPECT_EQ(frame->geometry(), QRect(240, 40, 71, 97).adjusted(-out, -out, out, out));
    EXPECT_FALSE(w.focusRing()->isVisible());
    press(button, Qt::Key_Space);
    press(button, Qt::Key_Return);
    EXPECT_EQ(std::tuple(cardClicks, goes), std::tuple(2, 0));
    EXPECT_TRUE(button->hasFocus());

    // Drawn in whole pixels: at twice the pixel ratio no colour but its own three.
    QImage hi(frame->size() * 2, QImage::Format_ARGB32_Premultiplied);
    hi.setDevicePixelRatio(2);
    hi.fill(Qt::transparent);
    {
        QPainter painter(&hi);
        frame->render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    }
    std::set<QRgb> colours;
    for (int y = 0; y < hi.height(); ++y)
        for (int x = 0; x < hi.width(); ++x)
            colours.insert(hi.pixel(x, y));
    EXPECT_EQ(colours, (std::set<QRgb>{0, qRgb(0x10, 0x10, 0x10), qRgb(0xFF, 0xC8, 0x00)}));
    EXPECT_EQ(hi.pixel(2 * out - 1, hi.height() / 2), qRgb(0x10, 0x10, 0x10));  // the inner edge
    EXPECT_EQ(hi.pixel(2, hi.height() / 2), qRgb(0xFF, 0xC8, 0x00));

    // The mouse puts the cursor away: Space is the focused button's again.
    button->click();
    EXPECT_FALSE(frame->isVisible());
    EXPECT_TRUE(w.focusRing()->isVisible());
    press(button, Qt::Key_Space);
    EXPECT_EQ(std::tuple(cardClicks, goes), std::tuple(2, 2));

    // A hidden command with nothing to do takes the focus from every button, and keeps
    // it when a button is disabled and enabled again: Space clicks nothing by chance.
    Control& dummy = form->addControl(ControlKind::CommandButton, "DummyCommand");
    dummy.setVisible(false);
    dummy.setFocus();
    EXPECT_FALSE(button->hasFocus());
    cmd.setEnabled(false);
    cmd.setEnabled(true);
    EXPECT_FALSE(button->hasFocus());
}

// The real program on the real platform, in a data folder of its own.
struct RealProgram {
    QApplication& app = qtTestApp();
    QTemporaryDir data;
    QtPlatform platform;
    Program program{(platform.setQuitWhenLastFormUnloaded(false), platform),
                    data.path().toStdString(), 7};
};

// The selector's cards turn all the time it is open: a tick repaints the card it turns and
// what lies behind it, and nothing else. Then a real game form takes its place.
TEST(QtRealForms, SelectorTicksRepaintOnlyTheCardTurnedAndAGameFormShows) {
    RealProgram r;
    // A message box here would wait for a user who never comes.
    QTimer watchdog;
    QObject::connect(&watchdog, &QTimer::timeout, [] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            ADD_FAILURE() << "unexpected dialog: " << modal->windowTitle().toStdString();
            modal->close();
        }
    });
    watchdog.start(50);
    auto& select = static_cast<frmSelect&>(startSelector(r.program));
    FormWindow* w = r.platform.windowOf(select);
    ASSERT_NE(w, nullptr);
    EXPECT_TRUE(w->isVisible());
    runLoop(30);
    struct Painted : QObject {
        std::set<QObject*> seen;
        bool eventFilter(QObject* o, QEvent* e) override {
            if (e->type() == QEvent::Paint)
                seen.insert(o);
            return false;
        }
    } painted;
    for (QWidget* c : w->findChildren<QWidget*>())
        c->installEventFilter(&painted);
    // The ticks are the test's alone, and the first paint is over before they start.
    select.Timer1.stop();
    for (int i = 0; i < 100 && (i == 0 || !painted.seen.empty()); ++i) {
        painted.seen.clear();
        runLoop(30);
    }
    std::set<QObject*> cards;
    for (Control* img : select.imgSplashImage)
        cards.insert(w->widgetOf(*img));
    for (int tick = 0; tick < 32; ++tick) {  // the row turned over twice
        painted.seen.clear();
        select.Timer1_Timer();
        QCoreApplication::processEvents();
        painted.seen.erase(w->clientArea());
        EXPECT_LE(painted.seen.size(), 1u) << "tick " << tick;
        for (QObject* o : painted.seen)
            EXPECT_TRUE(cards.count(o)) << "tick " << tick << ": " << o->metaObject()->className();
    }

    const auto buttons = w->findChildren<QPushButton*>();
    EXPECT_GE(buttons.size(), 11);  // nine games, the web page and Close
    const auto launch = std::find_if(buttons.begin(), buttons.end(),
                                     [](auto* b) { return b->text() == "&Tierfall"; });
    ASSERT_NE(launch, buttons.end());
    (*launch)->click();
    Form* game = r.program.findForm("frmTierfall");
    ASSERT_NE(game, nullptr);
    FormWindow* gw = r.platform.windowOf(*game);
    ASSERT_NE(gw, nullptr);
    EXPECT_TRUE(gw->isVisible());
    EXPECT_FALSE(w->isVisible());  // the selector steps aside for the game
    auto* menuBar = qobject_cast<QMenuBar*>(gw->menuWidget());
    ASSERT_NE(menuBar, nullptr);
    EXPECT_FALSE(menuBar->actions().isEmpty());
    runLoop(30);
    // Whatever the game shows, the window paints without trouble.
    EXPECT_FALSE(gw->grab().isNull());
}

// The name dialog in the real window: the stored name comes selected, so what is typed
// replaces it; Tab and the mouse select it again; Enter is OK.
TEST(QtRealForms, NameDialogOffersTheStoredNameSelected) {
    RealProgram r;
    Program& program = r.program;
    QtPlatform& platform = r.platform;
    program.state.AppTitle = "Tierfall!";
    program.state.UserName = "Alice";
    QTimer::singleShot(0, [&] {
        Form* dialog = program.findForm("frmHiScoreName");
        ASSERT_NE(dialog, nullptr);
        FormWindow* w = platform.windowOf(*dialog);
        ASSERT_NE(w, nullptr);
        auto* edit = w->findChild<QLineEdit*>();
        auto* ok = w->findChild<QPushButton*>();
        ASSERT_TRUE(edit && ok);
        for (int i = 0; i < 100 && !edit->hasFocus(); ++i)
            runLoop(10);
        ASSERT_TRUE(edit->hasFocus());
        EXPECT_EQ(edit->selectedText(), "Alice");
        press(edit, Qt::Key_B, "B");
        press(edit, Qt::Key_O, "o");
        press(edit, Qt::Key_B, "b");
        EXPECT_EQ(edit->text(), "Bob");
        // Tab puts the ring round OK; a click back in the box selects the whole name.
        press(edit, Qt::Key_Tab);
        ASSERT_TRUE(ok->hasFocus());
        EXPECT_TRUE(w->focusRing()->isVisible());
        EXPECT_EQ(w->focusRing()->geometry(), ok->geometry());
        // Through the window, as the mouse comes: that is where a press gives the focus.
        const QPointF at = edit->mapTo(w, QPointF(edit->width() / 2.0, edit->height() / 2.0));
        for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent click(type, at, w->mapToGlobal(at), Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            QApplication::sendEvent(w->windowHandle(), &click);
        }
        EXPECT_TRUE(edit->hasFocus());
        EXPECT_EQ(edit->selectedText(), "Bob");
        press(edit, Qt::Key_Return);
    });
    // Should the dialog stay up, it goes, so the test ends.
    QTimer::singleShot(5000, [&] {
        if (Form* dialog = program.findForm("frmHiScoreName")) {
            ADD_FAILURE() << "the dialog is still open";
            dialog->QueryUnload = nullptr;
            program.unload(*dialog);
        }
    });
    AskHighScoreName(program);
    EXPECT_EQ(program.state.UserName, "Bob");
}

}  // namespace
}  // namespace corvanna
