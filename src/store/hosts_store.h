// SPDX-License-Identifier: MIT
#pragma once

#include "custom_order.h"
#include "helper_protocol.h"
#include "hostname_collation.h"
#include "hosts_document.h"
#include "script_runner.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

// The one model object of the app: the loaded hosts file, the user's pending edits, the lists
// the panel shows, and the apply cycle. Used on the main thread only.
//
// Whether there are unapplied edits is always serialized() compared with the text as loaded, never
// a flag kept by hand.
class HostsStore : public QObject {
    Q_OBJECT

public:
    // Everything the store touches outside itself, so tests touch the machine only where they
    // mean to. The defaults are the real ones.
    struct Environment {
        QString hostsPath = QStringLiteral("/etc/hosts");
        std::function<QString()> backupsFolder; // default: Backups::defaultFolder
        std::function<QDateTime()> clock;       // default: the current local time
        std::shared_ptr<ScriptRunner> runner;   // default: platformScriptRunner()
        QLocale locale;                         // collation of the custom list
    };

    inline static const QString readFailureMessage = QStringLiteral("Could not read /etc/hosts");
    inline static const QString conflictMessage =
        QString::fromUtf8(HelperProtocol::conflictMessage.data(),
                          static_cast<qsizetype>(HelperProtocol::conflictMessage.size()));

    explicit HostsStore(QObject* parent = nullptr);
    explicit HostsStore(Environment environment, QObject* parent = nullptr);
    ~HostsStore() override;

    // Published state.
    const pinecove::EntryTable& entries() const { return document_.entries; }
    bool isApplying() const { return isApplying_; }
    QString lastErrorText() const { return lastError_.value_or(QString()); }
    bool hasError() const { return lastError_.has_value(); }
    // The file's text as last loaded: what an apply replaces.
    const std::string& loadedText() const { return *loadedDiskText_; }
    // The lines and entries as edited, for pinecovectl's line numbers.
    const pinecove::HostsDocument& document() const { return document_; }

    // Derived, computed on each call.
    std::string serialized() const { return pinecove::serialized(document_); }
    bool isDirty() const { return serialized() != baseline_; }
    std::vector<pinecove::HostEntry> systemEntries() const;
    std::vector<pinecove::HostEntry> customEntries() const;
    int activeCustomCount() const;
    // The custom list without copying entries, for list models.
    const CustomOrder& customOrder() const { return customOrder_; }

    // Reads the hosts file and replaces the model, or sets lastError and keeps the model.
    void load();
    // Edits in memory. System entries and unknown ids are left alone.
    void toggle(const pinecove::Uuid& id);
    void remove(pinecove::Uuid id); // a copy, as the entry it names goes away
    bool add(const std::string& ip, const std::vector<std::string>& hostnames);
    // pinecovectl's finer edits: one name out of a line (see removeHostname), and a new line
    // whatever names other lines hold. The custom list is reset rather than edited row by row.
    bool removeName(pinecove::Uuid id, const std::string& name);
    void append(const std::string& ip, const std::vector<std::string>& hostnames);
    // Checks for outside changes, backs up, writes and reloads; reports only through
    // isApplying and lastError. Returns at once; applyFinished() follows when the write ends.
    void apply();
    // The same flow for a whole text given as it is (restoring a backup byte for byte): nothing
    // when it equals the file as loaded.
    void applyText(const std::string& text);

signals:
    void isApplyingChanged();
    void lastErrorChanged();
    // After every change that may change isDirty(), carrying its new value: the whole-text
    // comparison is made once here, not once per listener.
    void dirtyChanged(bool isDirty);
    // The custom list, in detail, so that views can animate rows instead of resetting.
    void customEntriesReset();
    void customEntryMoved(int from, int to);
    void customEntryChanged(int position);
    void customEntryInserted(int position);
    void customEntryRemoved(int position);
    // The system entries changed as a whole (after a load).
    void systemEntriesReset();
    // An apply that got under way has ended: `written` tells a write from a dismissed prompt or a
    // failure.
    void applyFinished(bool written);

private:
    std::optional<std::string> readHostsFile() const;
    void announceDirty() { emit dirtyChanged(isDirty()); }
    void setApplying(bool applying);
    void setLastError(std::optional<QString> error);
    void finishApply(std::optional<QString> error, bool written = false);

    Environment environment_;
    HostnameCollation collation_;
    pinecove::HostsDocument document_;
    CustomOrder customOrder_;
    std::string baseline_;
    bool isApplying_ = false;
    std::optional<QString> lastError_;
    std::shared_ptr<const std::string> loadedDiskText_ = std::make_shared<const std::string>();
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); // outlived by a pending write
};
