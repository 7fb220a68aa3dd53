<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>Help</name>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The first page, with links to all others (F1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The page that was shown before (Alt+Left)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The page from which you went back (Alt+Right)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fi&amp;nd:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter looks for the text in all pages of the manual, F3 for its next place</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Looks for the text in all pages (Ctrl+F; F3 the next place)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HilbertWindow</name>
    <message>
        <source>Hilbert Scope</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Menu</name>
    <message>
        <source>&amp;New Temperament</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Stretc&amp;h</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Recen&amp;t</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save a Cop&amp;y…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert to Save&amp;d</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page Set&amp;up…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print Pre&amp;view…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pr&amp;eferences…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Manual Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note &amp;Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note &amp;Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Octave Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>O&amp;ctave Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sound &amp;Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sound Settings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tuner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show &amp;Partials</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show &amp;Hilbert Scope</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Piano &amp;Keyboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>H&amp;old Partials</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scope with &amp;Line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scope with &amp;Dots</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scope D&amp;ecays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scope &amp;Grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reduce Motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speak &amp;Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speak &amp;Details</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speak &amp;Tune</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speak &amp;Hertz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Minimise</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Veltrano &amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy Diagnostics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About Veltrano</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Speech</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PartialsWindow</name>
    <message>
        <source>Partials</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PianoWindow</name>
    <message>
        <source>Piano Keyboard</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QtDocumentPanels</name>
    <message>
        <source>All documents (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to save the changes made to “%1”?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your changes will be lost if you don’t save them.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SoundSettings</name>
    <message>
        <source>The sound settings could not be opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No program for the sound settings was found on this desktop. Install one, such as pavucontrol, or choose the devices in the preferences.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StretchDocument</name>
    <message>
        <source>&amp;Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stretch offsets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stretch across the keyboard</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TemperamentDocument</name>
    <message>
        <source>&amp;Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Temperament</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deviation from equal temperament</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TunerWindow</name>
    <message>
        <source>Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accidental</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Octave</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Strobe</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lights</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In tune</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sharp</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deviation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frequency in hertz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Target</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Target frequency in hertz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Difference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Difference in hertz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stretch offset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stretch offset in cents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tuning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reference pitch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Temperament</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level light 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level light 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level light 3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level light 4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level light 5</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level light 6</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level light 7</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level light 8</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Peak level</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VeltranoPrefs</name>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tuning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reference pitch (A4):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reference pitch of A4 in hertz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Te&amp;mperament:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Temperament</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Root &amp;key:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Root key of the temperament</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Stretch:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stretch table</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;In tune within:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In tune within</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>M&amp;anual Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Manual mode: the tuner keeps to the note or pitch chosen here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Note:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Octave:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Octave</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Pitch:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch in hertz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sound &amp;Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sound back: play the target of each new note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Duration:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duration of the tone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume of the tone in percent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Waveform:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waveform</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Devices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Input:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input volume in percent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Output:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Output device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sound S&amp;ettings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Volume (%):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input &amp;volume (%):</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::Application</name>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;h3&gt;Veltrano %1&lt;/h3&gt;&lt;p&gt;Tunes pianos by ear of the microphone.&lt;/p&gt;&lt;p&gt;Free software under the GNU General Public License, version 3 or later. It comes without any warranty.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::ApplicationMenu</name>
    <message>
        <source>&amp;Clear Menu</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No &amp;Documents</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::CellTableModel</name>
    <message>
        <source>editable</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::DotView</name>
    <message>
        <source>off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>on</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::EditorWindow</name>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::GraphView</name>
    <message>
        <source>all %1 cents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lowest %1 %2 cents, highest %3 %4 cents</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::HelpNavigation</name>
    <message>
        <source>Caret on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Caret off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On another page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From the other end</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not found</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::HelpPanel</name>
    <message>
        <source>The pages of the manual are missing. They belong into this folder:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::HilbertView</name>
    <message>
        <source>signal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no signal</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::IdleInhibitor</name>
    <message>
        <source>Listening to a piano</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::InTuneDotView</name>
    <message>
        <source>yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::LevelDotView</name>
    <message>
        <source>peak</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>overload</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>on</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::PianoView</name>
    <message>
        <source>no key</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::PreferencesPanel</name>
    <message>
        <source>Sine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Triangle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sawtooth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Square</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::ReadoutGroup</name>
    <message>
        <source>%1 of %2 lights</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sharp</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>flat</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::StretchEditor</name>
    <message>
        <source>Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Octave %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1%2: %3 cents</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::StrobeView</name>
    <message>
        <source>signal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no signal</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::TemperamentEditor</name>
    <message>
        <source>Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hertz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A is what the others are measured against.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>veltrano::TuningMeterView</name>
    <message>
        <source>off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cents</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
