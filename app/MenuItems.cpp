// SPDX-License-Identifier: GPL-3.0-or-later
// What the menus hold.
#include "app/MenuItems.h"

#include <QtGlobal>

namespace veltrano {

namespace {

using Items = std::vector<MenuItem>;

Items fileItems() {
    return {
        {QT_TRANSLATE_NOOP("Menu", "&New Temperament"),
         MenuCommand::newTemperament,
         {QKeySequence::New}},
        {QT_TRANSLATE_NOOP("Menu", "New Stretc&h"),
         MenuCommand::newStretch,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_N}},
        {QT_TRANSLATE_NOOP("Menu", "&Open…"), MenuCommand::open, {QKeySequence::Open}},
        {QT_TRANSLATE_NOOP("Menu", "Open Recen&t"), {}, {}, MenuList::recentFiles},
        {nullptr},
        {QT_TRANSLATE_NOOP("Menu", "&Import…"), MenuCommand::importScala, {Qt::CTRL | Qt::Key_I}},
        {QT_TRANSLATE_NOOP("Menu", "&Export…"), // Ctrl+E goes to the end of a line
         MenuCommand::exportScala,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_E}},
        {nullptr},
        {QT_TRANSLATE_NOOP("Menu", "&Close"), MenuCommand::closeWindow, {Qt::CTRL | Qt::Key_W}},
        {QT_TRANSLATE_NOOP("Menu", "&Save"), MenuCommand::save, {QKeySequence::Save}},
        {QT_TRANSLATE_NOOP("Menu", "Save &As…"),
         MenuCommand::saveAs,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_S}},
        {QT_TRANSLATE_NOOP("Menu", "Save a Cop&y…"), MenuCommand::saveTo, {}},
        {QT_TRANSLATE_NOOP("Menu", "Revert to Save&d"), MenuCommand::revert, {}},
        {nullptr},
        {QT_TRANSLATE_NOOP("Menu", "Page Set&up…"),
         MenuCommand::pageSetup,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_P}},
        {QT_TRANSLATE_NOOP("Menu", "Print Pre&view…"), MenuCommand::printPreview, {}},
        {QT_TRANSLATE_NOOP("Menu", "&Print…"), MenuCommand::print, {QKeySequence::Print}},
        {nullptr},
        {QT_TRANSLATE_NOOP("Menu", "&Quit"), MenuCommand::quit, {Qt::CTRL | Qt::Key_Q}}};
}

Items editItems() {
    return {{QT_TRANSLATE_NOOP("Menu", "&Undo"), MenuCommand::undo, {QKeySequence::Undo}},
            {QT_TRANSLATE_NOOP("Menu", "&Redo"),
             MenuCommand::redo,
             {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y}},
            {nullptr},
            {QT_TRANSLATE_NOOP("Menu", "Cu&t"), MenuCommand::cut, {QKeySequence::Cut}},
            {QT_TRANSLATE_NOOP("Menu", "&Copy"), MenuCommand::copy, {QKeySequence::Copy}},
            {QT_TRANSLATE_NOOP("Menu", "&Paste"), MenuCommand::paste, {QKeySequence::Paste}},
            {QT_TRANSLATE_NOOP("Menu", "&Delete"), MenuCommand::deleteAll, {}},
            {QT_TRANSLATE_NOOP("Menu", "Select &All"),
             MenuCommand::selectAll,
             {QKeySequence::SelectAll}},
            {nullptr},
            {QT_TRANSLATE_NOOP("Menu", "Pr&eferences…"),
             MenuCommand::preferences,
             {Qt::CTRL | Qt::Key_Comma}}};
}

Items tunerItems() {
    return {{QT_TRANSLATE_NOOP("Menu", "&Manual Mode"), MenuCommand::autoManualToggle, {}},
            {nullptr},
            {QT_TRANSLATE_NOOP("Menu", "Note &Up"), MenuCommand::noteUp, {}},
            {QT_TRANSLATE_NOOP("Menu", "Note &Down"), MenuCommand::noteDown, {}},
            {QT_TRANSLATE_NOOP("Menu", "&Octave Up"), MenuCommand::octaveUp, {}},
            {QT_TRANSLATE_NOOP("Menu", "O&ctave Down"), MenuCommand::octaveDown, {}},
            {nullptr},
            {QT_TRANSLATE_NOOP("Menu", "Sound &Back"), MenuCommand::soundBackToggle, {}},
            {QT_TRANSLATE_NOOP("Menu", "&Play"), MenuCommand::playSoundBack, {}},
            {nullptr},
            {QT_TRANSLATE_NOOP("Menu", "&Sound Settings…"), MenuCommand::soundSettings, {}}};
}

Items viewItems() {
    return {
        {QT_TRANSLATE_NOOP("Menu", "&Tuner"), MenuCommand::showTunerWindow, {Qt::CTRL | Qt::Key_1}},
        {QT_TRANSLATE_NOOP("Menu", "Show &Partials"),
         MenuCommand::showPartials,
         {Qt::CTRL | Qt::Key_2}},
        {QT_TRANSLATE_NOOP("Menu", "Show &Hilbert Scope"),
         MenuCommand::showHilbertScope,
         {Qt::CTRL | Qt::Key_3}},
        {QT_TRANSLATE_NOOP("Menu", "Piano &Keyboard"),
         MenuCommand::showPianoKeyboard,
         {Qt::CTRL | Qt::Key_4}},
        {nullptr},
        {QT_TRANSLATE_NOOP("Menu", "H&old Partials"), MenuCommand::partialsHold, {}},
        {nullptr},
        {QT_TRANSLATE_NOOP("Menu", "Scope with &Line"), MenuCommand::hilbertLine, {}},
        {QT_TRANSLATE_NOOP("Menu", "Scope with &Dots"), MenuCommand::hilbertDots, {}},
        {QT_TRANSLATE_NOOP("Menu", "Scope D&ecays"), MenuCommand::hilbertDecay, {}},
        {QT_TRANSLATE_NOOP("Menu", "Scope &Grid"), MenuCommand::hilbertGrid, {}},
        {nullptr},
        {QT_TRANSLATE_NOOP("Menu", "&Reduce Motion"), MenuCommand::reduceMotion, {}},
        {QT_TRANSLATE_NOOP("Menu", "&Full Screen"), MenuCommand::fullScreen, {Qt::Key_F11}}};
}

Items speechItems() {
    return {
        {QT_TRANSLATE_NOOP("Menu", "Speak &Status"),
         MenuCommand::speakStatus,
         {Qt::CTRL | Qt::Key_D}},
        {QT_TRANSLATE_NOOP("Menu", "Speak &Details"),
         MenuCommand::speakDetails,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_D}},
        {nullptr},
        {QT_TRANSLATE_NOOP("Menu", "Speak &Tune"), MenuCommand::speakTune, {Qt::CTRL | Qt::Key_T}},
        {QT_TRANSLATE_NOOP("Menu", "Speak &Hertz"),
         MenuCommand::speakHertz,
         {Qt::CTRL | Qt::Key_H}}};
}

Items windowItems() {
    return {{QT_TRANSLATE_NOOP("Menu", "&Minimise"), MenuCommand::minimise, {Qt::CTRL | Qt::Key_M}},
            {nullptr},
            {nullptr, {}, {}, MenuList::documents}};
}

Items helpItems() {
    return {{QT_TRANSLATE_NOOP("Menu", "Veltrano &Help"),
             MenuCommand::help,
             {QKeySequence::HelpContents}},
            {QT_TRANSLATE_NOOP("Menu", "&Keyboard Shortcuts"),
             MenuCommand::shortcuts,
             {Qt::CTRL | Qt::Key_Question}},
            {nullptr},
            {QT_TRANSLATE_NOOP("Menu", "&Copy Diagnostics"), MenuCommand::copyDiagnostics, {}},
            {QT_TRANSLATE_NOOP("Menu", "&About Veltrano"), MenuCommand::about, {}}};
}

} // namespace

const std::vector<MenuTable>& menuTables() {
    static const std::vector<MenuTable> kTables{
        {QT_TRANSLATE_NOOP("Menu", "&File"), fileItems()},
        {QT_TRANSLATE_NOOP("Menu", "&Edit"), editItems()},
        {QT_TRANSLATE_NOOP("Menu", "&Tuner"), tunerItems()},
        {QT_TRANSLATE_NOOP("Menu", "&Speech"), speechItems()},
        {QT_TRANSLATE_NOOP("Menu", "&View"), viewItems()},
        {QT_TRANSLATE_NOOP("Menu", "&Window"), windowItems()},
        {QT_TRANSLATE_NOOP("Menu", "&Help"), helpItems()}};
    return kTables;
}

} // namespace veltrano
