// SPDX-License-Identifier: MIT
#pragma once

class HostsStore;
class QQmlEngine;

// Chooses how panels are drawn; call before the first window exists. The panel is a few
// rectangles, texts and small images, which Qt Quick's software renderer draws well without
// loading a GPU stack: on a machine without a GPU that stack alone (Mesa with LLVM) costs
// about 90 MB.
void usePanelRenderer();

// Readies an engine for the Pinecove QML module: its import path, the symbol images, and the
// store that the Store singleton will show. Call before loading any Pinecove QML.
void setUpPanelEngine(QQmlEngine& engine, HostsStore& store);
