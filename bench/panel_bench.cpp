// SPDX-License-Identifier: MIT
// The panel on a 200,000-mapping block list, offscreen: opening it (reload on appearance
// included) up to its first frame, and one toggle up to the redrawn frame.
// Run: QT_QPA_PLATFORM=offscreen build/bench/panel_bench

#include "hosts_store.h"
#include "panel_engine.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QStandardPaths>
#include <QtQml/qqmlextensionplugin.h>
#include <benchmark/benchmark.h>

Q_IMPORT_QML_PLUGIN(PinecovePlugin)

namespace {

class IdleRunner : public ScriptRunner {
public:
    void run(const WriteRequest&, std::function<void(Outcome)>) override {}
};

HostsStore& largeStore() {
    static HostsStore* store = [] {
        HostsStore::Environment environment;
        environment.hostsPath = QStringLiteral(PINECOVE_LARGE_HOSTS);
        environment.runner = std::make_shared<IdleRunner>();
        return new HostsStore(environment);
    }();
    return *store;
}

std::unique_ptr<QQuickView> openPanel(HostsStore& store) {
    auto view = std::make_unique<QQuickView>();
    setUpPanelEngine(*view->engine(), store);
    view->setResizeMode(QQuickView::SizeViewToRootObject);
    view->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Pinecove/qml/PanelView.qml")));
    QMetaObject::invokeMethod(view->rootObject(), "appeared");
    view->show();
    return view;
}

// Renders a frame now; offscreen there is no vsync to wait for.
void renderFrame(QQuickView& view) {
    benchmark::DoNotOptimize(view.grabWindow());
}

void BM_PanelOpen(benchmark::State& state) {
    HostsStore& store = largeStore();
    for (auto _ : state) {
        auto view = openPanel(store);
        renderFrame(*view);
        state.PauseTiming();
        view.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_PanelOpen)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_ToggleRedraw(benchmark::State& state) {
    HostsStore& store = largeStore();
    auto view = openPanel(store);
    renderFrame(*view);
    const pinecove::Uuid id = store.customOrder().idAt(1); // a row in view
    for (auto _ : state) {
        store.toggle(id);
        renderFrame(*view);
    }
}
BENCHMARK(BM_ToggleRedraw)->Unit(benchmark::kMillisecond);

// The cost of rendering an unchanged frame, to read the toggle figure against.
void BM_IdleFrame(benchmark::State& state) {
    auto view = openPanel(largeStore());
    renderFrame(*view);
    for (auto _ : state)
        renderFrame(*view);
}
BENCHMARK(BM_IdleFrame)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    usePanelRenderer();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
