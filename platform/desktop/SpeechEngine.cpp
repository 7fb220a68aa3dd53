// SPDX-License-Identifier: GPL-3.0-or-later
// The voice of the desktop.
#include "platform/desktop/SpeechEngine.h"

#include "platform/desktop/SpeechText.h"
#include "platform/desktop/SpeechWorker.h"

#include <QThread>

namespace veltrano {

SpeechEngine::SpeechEngine(Log& log, const Clock& clock) : mTurns(*this, log, clock) {}

SpeechEngine::~SpeechEngine() {
    if (!mThread) return;
    mThread->quit();
    if (mThread->wait(kPatienceMilliseconds)) {
        delete mThread;
    } else {
        QObject::connect(mThread, &QThread::finished, mThread, &QObject::deleteLater);
    }
}

void SpeechEngine::startWorker() {
    mThread = new QThread;
    mWorker = new SpeechWorker;
    mWorker->moveToThread(mThread);
    QObject::connect(mThread, &QThread::finished, mWorker, &QObject::deleteLater);
    // What comes from a worker that hung is dropped once mMainThread is gone.
    QObject::connect(mWorker, &SpeechWorker::started, &mMainThread, [this] { mTurns.started(); });
    QObject::connect(mWorker, &SpeechWorker::finished, &mMainThread, [this] { mTurns.finished(); });
    QObject::connect(mWorker, &SpeechWorker::failed, &mMainThread,
                     [this](const QString& reason) { mTurns.failed(reason.toStdString()); });
    mThread->start();
}

void SpeechEngine::speak(const std::string& utf8) {
    if (!mThread) startWorker();
    const QString text = QString::fromStdString(speechText(utf8));
    QMetaObject::invokeMethod(mWorker, [worker = mWorker, text] { worker->speak(text); });
}

void SpeechEngine::fallSilent() {
    QMetaObject::invokeMethod(mWorker, [worker = mWorker] { worker->fallSilent(); });
}

} // namespace veltrano
