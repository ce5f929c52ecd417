#include "updates/views/UpdateAlertDialog.h"

#include "FakeUrlOpener.h"
#include "MemoryDefaultsStore.h"
#include "UpdateTestSupport.h"
#include "updates/AppUpdateManager.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace {

class UpdateAlertDialogTest : public UpdateFixture {
protected:
    UpdateAlertDialogTest() { manager.setAlertPresenter(&dialog); }

    void checkManually(const QByteArray& answerJson)
    {
        answer(200, answerJson);
        manager.checkManually(settings);
        ASSERT_TRUE(AwaitTask::until([&] { return !manager.isChecking(); }));
    }
    QStringList buttonTexts() const
    {
        QStringList texts;
        for (const QAbstractButton* button : dialog.buttons()) {
            texts.append(button->text());
        }
        texts.sort();
        return texts;
    }
    QAbstractButton* buttonWithText(const QString& text) const
    {
        for (QAbstractButton* button : dialog.buttons()) {
            if (button->text() == text) {
                return button;
            }
        }
        return nullptr;
    }

    MivoraSettings settings;
    MemoryDefaultsStore defaults;
    FakeUrlOpener opener;
    AppUpdateManager manager{makeClient(), defaults, clock, opener, nullptr};
    UpdateAlertDialog dialog{manager, [this] { return settings.uiLanguage; }};
};

const QByteArray downloadable = R"({"latest_version":"2.0","latest_build":50,
                                    "download_url":"https://example.test/MivoraAI-2.0.tar.gz"})";

} // namespace

TEST_F(UpdateAlertDialogTest, InstallOpensTheDownloadAndClearsTheAlert)
{
    settings.uiLanguage = UiLanguage::ru;
    checkManually(downloadable);
    ASSERT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.text(), QStringLiteral("Доступна версия 2.0."));
    EXPECT_EQ(dialog.windowModality(), Qt::NonModal) << "the program keeps working while the alert is up";
    QAbstractButton* install = buttonWithText(QStringLiteral("Установить обновление"));
    ASSERT_NE(install, nullptr) << buttonTexts().join(u'|').toStdString();

    install->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(manager.alertMessage().has_value());
    EXPECT_EQ(opener.opened, QList<QUrl>{QUrl(QStringLiteral("https://example.test/MivoraAI-2.0.tar.gz"))});
}

TEST_F(UpdateAlertDialogTest, EscapeDismissesWithoutInstallingAndNewsWithoutADownloadOffersNoInstall)
{
    settings.uiLanguage = UiLanguage::en;
    checkManually(downloadable);
    ASSERT_NE(buttonWithText(QStringLiteral("Install Update")), nullptr);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&dialog, &escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(manager.alertMessage().has_value());
    EXPECT_TRUE(opener.opened.isEmpty()) << "dismissing never installs";

    checkManually(R"({"latest_version":"2.1","latest_build":51})");
    ASSERT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.text(), QStringLiteral("Version 2.1 is available."));
    EXPECT_EQ(buttonWithText(QStringLiteral("Install Update")), nullptr);
    EXPECT_EQ(buttonTexts().size(), 1);
}
