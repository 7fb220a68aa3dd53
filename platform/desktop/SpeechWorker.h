// SPDX-License-Identifier: GPL-3.0-or-later
// The speech engine in a thread of its own.
#pragma once

#include <QObject>
#include <QString>

class QTextToSpeech;

namespace veltrano {

/// Makes the engine at the first text and passes on what it tells. Its calls may take seconds, and
/// for ever when the speech service hangs.
/// Thread: whichever it was moved to, with an event loop. Owns: the engine.
class SpeechWorker final : public QObject {
    Q_OBJECT
public:
    void speak(const QString& text);
    void fallSilent();

signals:
    void started();
    void finished();
    void failed(const QString& reason);

private:
    bool hasEngine(); ///< makes it when there is none; false: there is none to be had

    QTextToSpeech* mEngine = nullptr; ///< child
};

} // namespace veltrano
