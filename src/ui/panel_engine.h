#pragma once

class HostsStore;
class QQmlEngine;

// Readies an engine for the Pinecove QML module: its import path, the symbol images, and the
// store that the Store singleton will show. Call before loading any Pinecove QML.
void setUpPanelEngine(QQmlEngine& engine, HostsStore& store);
