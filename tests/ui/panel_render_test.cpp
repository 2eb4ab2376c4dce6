// SPDX-License-Identifier: MIT
// Renders the panel in its main states to PNG files under the build folder, for review and for
// the README. Each render is also checked for being drawn at the panel's size.

#include "panel_fixture.h"

#include <QDir>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QTest>

namespace {

const std::string fewEntries = "127.0.0.1\tlocalhost\n"
                               "255.255.255.255\tbroadcasthost\n"
                               "::1\tlocalhost\n"
                               "127.0.0.1\tmyapp.test api.myapp.test admin.myapp.test\n"
                               "10.0.0.5\tstaging.myapp.test # staging box\n"
                               "#192.168.1.20\tnas.home.arpa\n"
                               "127.0.0.1\tkubernetes.docker.internal\n";

const std::string onlySystem =
    "127.0.0.1\tlocalhost\n255.255.255.255\tbroadcasthost\n::1\tlocalhost\n";

} // namespace

class PanelRenderTest : public QObject {
    Q_OBJECT

    QString outputFolder_;

    static bool shown(PanelFixture& fixture) {
        fixture.view().show();
        return QTest::qWaitForWindowExposed(&fixture.view());
    }

    void render(PanelFixture& fixture, const QString& name) {
        QVERIFY(shown(fixture));
        QTest::qWait(350); // let transitions settle
        const QImage image = fixture.view().grabWindow();
        QCOMPARE(image.width(), qRound(360 * fixture.view().devicePixelRatio()));
        QVERIFY(image.height() > 100);
        QVERIFY(image.save(outputFolder_ + QLatin1Char('/') + name + QStringLiteral(".png")));
    }

private slots:
    void initTestCase() {
        outputFolder_ = QStringLiteral(PINECOVE_SCREENSHOTS_DIR);
        QDir().mkpath(outputFolder_);
    }

    void empty() {
        PanelFixture fixture(onlySystem);
        fixture.setDark(false);
        render(fixture, QStringLiteral("panel-empty"));
    }

    void fewEntriesLight() {
        PanelFixture fixture(fewEntries);
        fixture.setDark(false);
        render(fixture, QStringLiteral("panel-entries-light"));
    }

    void fewEntriesDark() {
        PanelFixture fixture(fewEntries);
        fixture.setDark(true);
        render(fixture, QStringLiteral("panel-entries-dark"));
    }

    void systemExpanded() {
        PanelFixture fixture(fewEntries);
        fixture.setDark(false);
        fixture.panel()->setProperty("systemExpanded", true);
        render(fixture, QStringLiteral("panel-system-expanded"));
    }

    void errorWithApplyBar() {
        PanelFixture fixture(fewEntries);
        fixture.setDark(false);
        fixture.store().add("127.0.0.1", {"new.test"});
        fixture.runner().outcome = ScriptRunner::Failed{"Not authorized to update the hosts file."};
        fixture.store().apply();
        QTRY_VERIFY(fixture.store().hasError());
        fixture.panel()->setProperty("input", QStringLiteral("10.0.0.7 web.test"));
        render(fixture, QStringLiteral("panel-error-apply-bar"));
    }

    void afterAnimatedRemoval() {
        PanelFixture fixture(fewEntries);
        fixture.setDark(false);
        QVERIFY(shown(fixture));
        QMetaObject::invokeMethod(fixture.find("entryList"), "forceActiveFocus");
        QTest::keyClick(&fixture.view(), Qt::Key_Delete);
        render(fixture, QStringLiteral("panel-after-removal"));
    }

    void focusedRowAndLongName() {
        PanelFixture fixture(fewEntries + "127.0.0.1\tan-extremely-long-hostname-for-a-preview-"
                                          "environment.kubernetes.docker.internal extra.test\n");
        fixture.setDark(false);
        QVERIFY(shown(fixture));
        QMetaObject::invokeMethod(fixture.find("entryList"), "forceActiveFocus");
        render(fixture, QStringLiteral("panel-focus-long-name"));
    }

    void menuDark() {
        PanelFixture fixture(fewEntries);
        fixture.setDark(true);
        QVERIFY(shown(fixture));
        QQuickItem* more = fixture.find("moreActions");
        QTest::mouseClick(&fixture.view(), Qt::LeftButton, {},
                          more->mapToScene(QPointF(9, 9)).toPoint());
        render(fixture, QStringLiteral("panel-menu-dark"));
    }

    void applying() {
        PanelFixture fixture(fewEntries);
        fixture.setDark(true);
        fixture.store().add("127.0.0.1", {"new.test"});
        fixture.runner().hold = true;
        fixture.store().apply();
        QVERIFY(fixture.store().isApplying());
        render(fixture, QStringLiteral("panel-applying"));
        fixture.runner().release();
    }
};

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    PanelRenderTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "panel_render_test.moc"
