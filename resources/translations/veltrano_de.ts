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
        <source>&lt;body style=&quot;margin:20px 26px 20px 26px&quot;&gt;&lt;h2 style=&quot;margin-top:4px; margin-bottom:10px&quot;&gt;Veltrano&lt;/h2&gt;
&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;Names the key that you play and shows how far it is from its target.&lt;/p&gt;
&lt;h3 style=&quot;margin-top:18px; margin-bottom:8px&quot;&gt;First tuning&lt;/h3&gt;
&lt;ol style=&quot;margin-left:-14px&quot;&gt;&lt;li style=&quot;line-height:130%; margin-bottom:4px&quot;&gt;Place the microphone near the strings. Struck keys should light several level lights; a red one means that the input is too loud.&lt;/li&gt;
&lt;li style=&quot;line-height:130%; margin-bottom:4px&quot;&gt;Strike one key. Its note, accidental and octave appear at the upper left.&lt;/li&gt;
&lt;li style=&quot;line-height:130%; margin-bottom:4px&quot;&gt;Read the cents below the note: minus is flat, plus is sharp.&lt;/li&gt;
&lt;li style=&quot;line-height:130%; margin-bottom:4px&quot;&gt;Turn the pin until the bars of the strobe stand still and the tick lights up.&lt;/li&gt;
&lt;/ol&gt;&lt;h3 style=&quot;margin-top:18px; margin-bottom:8px&quot;&gt;The displays&lt;/h3&gt;
&lt;table cellspacing=&quot;0&quot; cellpadding=&quot;3&quot;&gt;&lt;tr&gt;&lt;td width=&quot;104&quot;&gt;&lt;b&gt;Strobe&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;The finest display. Bars that stand still: exactly in tune. Bars that drift: off, the faster the further.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;104&quot;&gt;&lt;b&gt;Needle&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;The deviation, up to 50 cents flat (left) or sharp (right). It is broad and green within the in-tune threshold, and broken at the end of the scale.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;104&quot;&gt;&lt;b&gt;Lights&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;Beside the flat sign: the note is flat. Beside the sharp sign: it is sharp. In the middle: a tick when it is in tune, a dot when it is not, an empty ring when nothing is heard.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;104&quot;&gt;&lt;b&gt;Frequency&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;What is heard, in hertz.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;104&quot;&gt;&lt;b&gt;Target&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;What the key should have: reference pitch, temperament and stretch taken together.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;104&quot;&gt;&lt;b&gt;Difference&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;Frequency less target.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;104&quot;&gt;&lt;b&gt;Stretch offset&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;How far the stretch table moves the target of this key.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;104&quot;&gt;&lt;b&gt;Level&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;A light for every 4 dB. The one with a bar marks the loudest moment of the last second, which the number beside it gives; the one with an exclamation mark is full scale.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;/table&gt;&lt;h3 style=&quot;margin-top:18px; margin-bottom:8px&quot;&gt;The window&lt;/h3&gt;
&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;It keeps its proportions, and everything in it grows with it. Hold Alt while resizing for whole multiples of the smallest size, Shift for any size.&lt;/p&gt;
&lt;h3 style=&quot;margin-top:18px; margin-bottom:8px&quot;&gt;The windows beside it&lt;/h3&gt;
&lt;table cellspacing=&quot;0&quot; cellpadding=&quot;3&quot;&gt;&lt;tr&gt;&lt;td width=&quot;122&quot;&gt;&lt;b&gt;Partials&lt;/b&gt;&lt;/td&gt;&lt;td width=&quot;58&quot;&gt;Ctrl+2&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;The partials of the sound, each on the key it falls on: a bar for its deviation in cents, upwards when it is sharp, and the number above.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;122&quot;&gt;&lt;b&gt;Hilbert Scope&lt;/b&gt;&lt;/td&gt;&lt;td width=&quot;58&quot;&gt;Ctrl+3&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;The shape of the sound. A pure tone is a circle, overtones put loops into it, noise is a blob.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;122&quot;&gt;&lt;b&gt;Piano Keyboard&lt;/b&gt;&lt;/td&gt;&lt;td width=&quot;58&quot;&gt;Ctrl+4&lt;/td&gt;&lt;td&gt;&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;The key that is being tuned, in red.&lt;/p&gt;&lt;/td&gt;&lt;/tr&gt;
&lt;/table&gt;
&lt;p style=&quot;line-height:130%; margin-top:6px; margin-bottom:6px&quot;&gt;The keys work in each of these windows. Ctrl+2 and Ctrl+3 also put their window away; Ctrl+1 leads back to the tuner. With the View menu the last partials stay on the screen, and the scope has a line or dots, a grid, and traces that decay.&lt;/p&gt;
&lt;h3 style=&quot;margin-top:18px; margin-bottom:8px&quot;&gt;Speech&lt;/h3&gt;
&lt;p style=&quot;line-height:130%; margin-top:0; margin-bottom:6px&quot;&gt;Ctrl+D speaks what the tuner shows, or the partials while their window is in front; Ctrl+Shift+D adds details. Ctrl+T has each new note spoken, Ctrl+H its frequency, until the key is pressed again.&lt;/p&gt;
&lt;h3 style=&quot;margin-top:18px; margin-bottom:8px&quot;&gt;Command line&lt;/h3&gt;
&lt;table cellspacing=&quot;0&quot; cellpadding=&quot;3&quot;&gt;&lt;tr&gt;&lt;td width=&quot;230&quot;&gt;&lt;tt&gt;veltrano --input FILE.wav&lt;/tt&gt;&lt;/td&gt;&lt;td&gt;listens to a recording instead of the microphone&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;230&quot;&gt;&lt;tt&gt;veltrano --appearance dark&lt;/tt&gt;&lt;/td&gt;&lt;td&gt;dark colours; also light and system&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;230&quot;&gt;&lt;tt&gt;veltrano-cli analyze FILE.wav&lt;/tt&gt;&lt;/td&gt;&lt;td&gt;prints the readings of a recording&lt;/td&gt;&lt;/tr&gt;
&lt;tr&gt;&lt;td width=&quot;230&quot;&gt;&lt;tt&gt;veltrano --help&lt;/tt&gt;&lt;/td&gt;&lt;td&gt;all options&lt;/td&gt;&lt;/tr&gt;
&lt;/table&gt;&lt;/body&gt;</source>
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
    <message>
        <source>Hide &amp;Partials</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide &amp;Hilbert Scope</source>
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
        <source>&amp;Volume:</source>
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
        <source>Input &amp;volume:</source>
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
</context>
<context>
    <name>veltrano</name>
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
