<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>EditHistory</name>
    <message>
        <source>Typing</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>The first page, with links to all others (F1)</source>
        <translation>Die erste Seite mit Verweisen auf alle anderen (F1)</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>The page that was shown before (Alt+Left)</source>
        <translation>Die Seite, die zuvor gezeigt wurde (Alt+Links)</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Vor</translation>
    </message>
    <message>
        <source>The page from which you went back (Alt+Right)</source>
        <translation>Die Seite, von der Sie zurückgegangen sind (Alt+Rechts)</translation>
    </message>
    <message>
        <source>Fi&amp;nd:</source>
        <translation>&amp;Suchen:</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Enter looks for the text in all pages of the manual, F3 for its next place</source>
        <translation>Return sucht den Text auf allen Seiten der Hilfe, F3 geht zur nächsten Stelle</translation>
    </message>
    <message>
        <source>Looks for the text in all pages (Ctrl+F; F3 the next place)</source>
        <translation>Sucht den Text auf allen Seiten (Strg+F; F3 zur nächsten Stelle)</translation>
    </message>
</context>
<context>
    <name>HilbertWindow</name>
    <message>
        <source>Hilbert Scope</source>
        <translation>Hilbert-Oszilloskop</translation>
    </message>
</context>
<context>
    <name>InterfaceFile</name>
    <message>
        <source>Vertical scroll bar</source>
        <translation>Senkrechte Bildlaufleiste</translation>
    </message>
    <message>
        <source>Horizontal scroll bar</source>
        <translation>Waagrechte Bildlaufleiste</translation>
    </message>
</context>
<context>
    <name>Menu</name>
    <message>
        <source>&amp;New Temperament</source>
        <translation>&amp;Neue Temperierung</translation>
    </message>
    <message>
        <source>New Stretc&amp;h</source>
        <translation>Neue S&amp;preizung</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Open Recen&amp;t</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Save a Cop&amp;y…</source>
        <translation>&amp;Kopie speichern…</translation>
    </message>
    <message>
        <source>Revert to Save&amp;d</source>
        <translation>Zur gespeicherten &amp;Version zurückkehren</translation>
    </message>
    <message>
        <source>Page Set&amp;up…</source>
        <translation>Seite ein&amp;richten…</translation>
    </message>
    <message>
        <source>Print Pre&amp;view…</source>
        <translation>Druckv&amp;orschau…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drucken…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>Alle&amp;s auswählen</translation>
    </message>
    <message>
        <source>Pr&amp;eferences…</source>
        <translation>E&amp;instellungen…</translation>
    </message>
    <message>
        <source>&amp;Manual Mode</source>
        <translation>&amp;Manueller Modus</translation>
    </message>
    <message>
        <source>Note &amp;Up</source>
        <translation>Taste nach &amp;oben</translation>
    </message>
    <message>
        <source>Note &amp;Down</source>
        <translation>Taste nach &amp;unten</translation>
    </message>
    <message>
        <source>&amp;Octave Up</source>
        <translation>Oktave nach o&amp;ben</translation>
    </message>
    <message>
        <source>O&amp;ctave Down</source>
        <translation>Oktave nach u&amp;nten</translation>
    </message>
    <message>
        <source>Sound &amp;Back</source>
        <translation>&amp;Vergleichston</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Sollton spielen</translation>
    </message>
    <message>
        <source>&amp;Sound Settings…</source>
        <translation>&amp;Klangeinstellungen…</translation>
    </message>
    <message>
        <source>&amp;Tuner</source>
        <translation>&amp;Stimmgerät</translation>
    </message>
    <message>
        <source>Show &amp;Partials</source>
        <translation>Show &amp;Partials</translation>
    </message>
    <message>
        <source>Show &amp;Hilbert Scope</source>
        <translation>Show &amp;Hilbert Scope</translation>
    </message>
    <message>
        <source>Piano &amp;Keyboard</source>
        <translation>&amp;Klaviatur</translation>
    </message>
    <message>
        <source>H&amp;old Partials</source>
        <translation>&amp;Teiltöne halten</translation>
    </message>
    <message>
        <source>Scope with &amp;Line</source>
        <translation>Oszilloskop mit &amp;Linie</translation>
    </message>
    <message>
        <source>Scope with &amp;Dots</source>
        <translation>Oszilloskop mit P&amp;unkten</translation>
    </message>
    <message>
        <source>Scope D&amp;ecays</source>
        <translation>Oszilloskop klingt &amp;ab</translation>
    </message>
    <message>
        <source>Scope &amp;Grid</source>
        <translation>&amp;Gitter des Oszilloskops</translation>
    </message>
    <message>
        <source>&amp;Reduce Motion</source>
        <translation>&amp;Bewegung verringern</translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>Speak &amp;Status</source>
        <translation>&amp;Messung ansagen</translation>
    </message>
    <message>
        <source>Speak &amp;Details</source>
        <translation>&amp;Einzelheiten ansagen</translation>
    </message>
    <message>
        <source>Speak &amp;Tune</source>
        <translation>&amp;Stimmung ansagen</translation>
    </message>
    <message>
        <source>Speak &amp;Hertz</source>
        <translation>&amp;Hertz ansagen</translation>
    </message>
    <message>
        <source>&amp;Minimise</source>
        <translation>&amp;Minimieren</translation>
    </message>
    <message>
        <source>Veltrano &amp;Help</source>
        <translation>&amp;Hilfe zu Veltrano</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>&amp;Copy Diagnostics</source>
        <translation>&amp;Diagnose kopieren</translation>
    </message>
    <message>
        <source>&amp;About Veltrano</source>
        <translation>Ü&amp;ber Veltrano</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Speech</source>
        <translation>S&amp;prache</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
</context>
<context>
    <name>PartialsWindow</name>
    <message>
        <source>Partials</source>
        <translation>Teiltöne</translation>
    </message>
</context>
<context>
    <name>PianoWindow</name>
    <message>
        <source>Piano Keyboard</source>
        <translation>Klaviatur</translation>
    </message>
</context>
<context>
    <name>QtDocumentPanels</name>
    <message>
        <source>All documents (%1)</source>
        <translation>Alle Dokumente (%1)</translation>
    </message>
    <message>
        <source>Do you want to save the changes made to “%1”?</source>
        <translation>Möchten Sie die Änderungen an „%1“ speichern?</translation>
    </message>
    <message>
        <source>Your changes will be lost if you don’t save them.</source>
        <translation>Ihre Änderungen gehen verloren, wenn Sie sie nicht speichern.</translation>
    </message>
</context>
<context>
    <name>SoundSettings</name>
    <message>
        <source>The sound settings could not be opened.</source>
        <translation>Die Klangeinstellungen konnten nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>No program for the sound settings was found on this desktop. Install one, such as pavucontrol, or choose the devices in the preferences.</source>
        <translation>In dieser Arbeitsumgebung wurde kein Programm für die Klangeinstellungen gefunden. Installieren Sie eines, etwa pavucontrol, oder wählen Sie die Geräte in den Einstellungen.</translation>
    </message>
</context>
<context>
    <name>StretchDocument</name>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation>B&amp;eschreibung:</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Stretch offsets</source>
        <translation>Spreizung jeder Taste</translation>
    </message>
    <message>
        <source>Stretch across the keyboard</source>
        <translation>Spreizung über die Klaviatur</translation>
    </message>
</context>
<context>
    <name>TemperamentDocument</name>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation>B&amp;eschreibung:</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Temperament</source>
        <translation>Temperierung</translation>
    </message>
    <message>
        <source>Deviation from equal temperament</source>
        <translation>Abweichung von gleichstufig</translation>
    </message>
</context>
<context>
    <name>TunerWindow</name>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Accidental</source>
        <translation>Vorzeichen</translation>
    </message>
    <message>
        <source>Octave</source>
        <translation>Oktave</translation>
    </message>
    <message>
        <source>Cents</source>
        <translation>Cent</translation>
    </message>
    <message>
        <source>cents</source>
        <translation>Cent</translation>
    </message>
    <message>
        <source>Strobe</source>
        <translation>Stroboskop</translation>
    </message>
    <message>
        <source>Lights</source>
        <translation>Leuchten</translation>
    </message>
    <message>
        <source>Flat</source>
        <translation>Zu tief</translation>
    </message>
    <message>
        <source>In tune</source>
        <translation>Es stimmt</translation>
    </message>
    <message>
        <source>Sharp</source>
        <translation>Zu hoch</translation>
    </message>
    <message>
        <source>Deviation</source>
        <translation>Abweichung</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Frequency in hertz</source>
        <translation>Frequenz in Hertz</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Sollwert</translation>
    </message>
    <message>
        <source>Target frequency in hertz</source>
        <translation>Sollwert in Hertz</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>Differenz</translation>
    </message>
    <message>
        <source>Difference in hertz</source>
        <translation>Differenz in Hertz</translation>
    </message>
    <message>
        <source>Stretch offset</source>
        <translation>Spreizung</translation>
    </message>
    <message>
        <source>Stretch offset in cents</source>
        <translation>Spreizung in Cent</translation>
    </message>
    <message>
        <source>Tuning</source>
        <translation>Stimmung</translation>
    </message>
    <message>
        <source>Reference pitch</source>
        <translation>Stimmton</translation>
    </message>
    <message>
        <source>Temperament</source>
        <translation>Temperierung</translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation>Spreizungstabelle</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>Input device</source>
        <translation>Eingabegerät</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Pegel</translation>
    </message>
    <message>
        <source>Level light 1</source>
        <translation>Pegelleuchte 1</translation>
    </message>
    <message>
        <source>Level light 2</source>
        <translation>Pegelleuchte 2</translation>
    </message>
    <message>
        <source>Level light 3</source>
        <translation>Pegelleuchte 3</translation>
    </message>
    <message>
        <source>Level light 4</source>
        <translation>Pegelleuchte 4</translation>
    </message>
    <message>
        <source>Level light 5</source>
        <translation>Pegelleuchte 5</translation>
    </message>
    <message>
        <source>Level light 6</source>
        <translation>Pegelleuchte 6</translation>
    </message>
    <message>
        <source>Level light 7</source>
        <translation>Pegelleuchte 7</translation>
    </message>
    <message>
        <source>Level light 8</source>
        <translation>Pegelleuchte 8</translation>
    </message>
    <message>
        <source>Peak level</source>
        <translation>Spitzenpegel</translation>
    </message>
</context>
<context>
    <name>VeltranoPrefs</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Tuning</source>
        <translation>&amp;Stimmung</translation>
    </message>
    <message>
        <source>&amp;Reference pitch (A4):</source>
        <translation>Stimm&amp;ton (A4):</translation>
    </message>
    <message>
        <source>Reference pitch of A4 in hertz</source>
        <translation>Stimmton, Frequenz von A4 in Hertz</translation>
    </message>
    <message>
        <source>Te&amp;mperament:</source>
        <translation>T&amp;emperierung:</translation>
    </message>
    <message>
        <source>Temperament</source>
        <translation>Temperierung</translation>
    </message>
    <message>
        <source>Root &amp;key:</source>
        <translation>Gr&amp;undton:</translation>
    </message>
    <message>
        <source>Root key of the temperament</source>
        <translation>Grundton der Temperierung</translation>
    </message>
    <message>
        <source>&amp;Stretch:</source>
        <translation>S&amp;preizung:</translation>
    </message>
    <message>
        <source>Stretch table</source>
        <translation>Spreizungstabelle</translation>
    </message>
    <message>
        <source>&amp;In tune within:</source>
        <translation>To&amp;leranz:</translation>
    </message>
    <message>
        <source>In tune within</source>
        <translation>Toleranz</translation>
    </message>
    <message>
        <source>M&amp;anual Mode</source>
        <translation>&amp;Manueller Modus</translation>
    </message>
    <message>
        <source>&amp;Manual mode: the tuner keeps to the note or pitch chosen here</source>
        <translation>M&amp;anueller Modus: Es gilt die hier gewählte Note oder Tonhöhe</translation>
    </message>
    <message>
        <source>&amp;Note:</source>
        <translation>&amp;Note:</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>&amp;Octave:</source>
        <translation>&amp;Oktave:</translation>
    </message>
    <message>
        <source>Octave</source>
        <translation>Oktave</translation>
    </message>
    <message>
        <source>&amp;Pitch:</source>
        <translation>&amp;Tonhöhe:</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Tonhöhe</translation>
    </message>
    <message>
        <source>Pitch in hertz</source>
        <translation>Tonhöhe in Hertz</translation>
    </message>
    <message>
        <source>Sound &amp;Back</source>
        <translation>&amp;Vergleichston</translation>
    </message>
    <message>
        <source>&amp;Sound back: play the target of each new note</source>
        <translation>Ve&amp;rgleichston: jeden neuen Sollton spielen</translation>
    </message>
    <message>
        <source>Duration of the tone</source>
        <translation>Dauer des Tons</translation>
    </message>
    <message>
        <source>Volume of the tone in percent</source>
        <translation>Lautstärke des Tons in Prozent</translation>
    </message>
    <message>
        <source>&amp;Waveform:</source>
        <translation>&amp;Wellenform:</translation>
    </message>
    <message>
        <source>Waveform</source>
        <translation>Wellenform</translation>
    </message>
    <message>
        <source>&amp;Devices</source>
        <translation>&amp;Geräte</translation>
    </message>
    <message>
        <source>&amp;Input:</source>
        <translation>&amp;Eingang:</translation>
    </message>
    <message>
        <source>Input device</source>
        <translation>Eingabegerät</translation>
    </message>
    <message>
        <source>Input volume in percent</source>
        <translation>Eingangslautstärke in Prozent</translation>
    </message>
    <message>
        <source>&amp;Output:</source>
        <translation>&amp;Ausgang:</translation>
    </message>
    <message>
        <source>Output device</source>
        <translation>Ausgabegerät</translation>
    </message>
    <message>
        <source>Sound S&amp;ettings…</source>
        <translation>&amp;Klangeinstellungen…</translation>
    </message>
    <message>
        <source>&amp;Volume (%):</source>
        <translation>&amp;Lautstärke (%):</translation>
    </message>
    <message>
        <source>Input &amp;volume (%):</source>
        <translation>Eingangs&amp;lautstärke (%):</translation>
    </message>
    <message>
        <source>D&amp;uration:</source>
        <translation>&amp;Dauer:</translation>
    </message>
</context>
<context>
    <name>veltrano::Application</name>
    <message>
        <source>About</source>
        <translation>Über Veltrano</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Veltrano %1&lt;/h3&gt;&lt;p&gt;Tunes pianos by what the microphone hears.&lt;/p&gt;&lt;p&gt;Free software under the GNU General Public License, version 3 or later. It comes without any warranty.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Veltrano %1&lt;/h3&gt;&lt;p&gt;Klaviere stimmen nach dem, was das Mikrofon hört.&lt;/p&gt;&lt;p&gt;Freie Software unter der GNU General Public License, Version 3 oder später. Ohne jede Gewähr.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>veltrano::ApplicationMenu</name>
    <message>
        <source>&amp;Clear Menu</source>
        <translation>Liste &amp;leeren</translation>
    </message>
    <message>
        <source>No &amp;Documents</source>
        <translation>Keine &amp;Dokumente</translation>
    </message>
</context>
<context>
    <name>veltrano::CellTableModel</name>
    <message>
        <source>editable</source>
        <translation>änderbar</translation>
    </message>
</context>
<context>
    <name>veltrano::Document</name>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Save a Copy</source>
        <translation>Kopie speichern</translation>
    </message>
    <message>
        <source>“%1” would not read back as it is now.</source>
        <translation>„%1“ ließe sich nicht so wieder lesen, wie es jetzt ist.</translation>
    </message>
    <message>
        <source>Some of its values or texts cannot be kept in a file of this kind: the file would be refused or give other values when it is opened again.</source>
        <translation>Einige Werte oder Texte passen nicht in eine Datei dieser Art: Beim nächsten Öffnen würde sie abgelehnt oder ergäbe andere Werte.</translation>
    </message>
    <message>
        <source>Save Anyway</source>
        <translation>Trotzdem speichern</translation>
    </message>
    <message>
        <source>The file of “%1” was moved or deleted since it was opened.</source>
        <translation>Die Datei von „%1“ wurde seit dem Öffnen verschoben oder gelöscht.</translation>
    </message>
    <message>
        <source>Saving makes it anew at %1.</source>
        <translation>Beim Speichern entsteht sie neu als %1.</translation>
    </message>
    <message>
        <source>The file of “%1” was changed by another program since it was opened.</source>
        <translation>Ein anderes Programm hat die Datei von „%1“ seit dem Öffnen geändert.</translation>
    </message>
    <message>
        <source>Saving replaces those changes by yours.</source>
        <translation>Beim Speichern ersetzen Ihre Änderungen die anderen.</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>„%1“ gibt es schon.</translation>
    </message>
    <message>
        <source>Replacing it discards what it holds.</source>
        <translation>Beim Ersetzen geht verloren, was die Datei enthält.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>“%1” could not be saved.</source>
        <translation>„%1“ konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Do you want to revert to the saved version of “%1”?</source>
        <translation>Möchten Sie zur gespeicherten Version von „%1“ zurückkehren?</translation>
    </message>
    <message>
        <source>Your changes will be lost.</source>
        <translation>Ihre Änderungen gehen verloren.</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>Zurückkehren</translation>
    </message>
    <message>
        <source>“%1” could not be read.</source>
        <translation>„%1“ konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>It is no longer there, or it is damaged. Your changes are kept.</source>
        <translation>Die Datei ist nicht mehr da oder beschädigt. Ihre Änderungen bleiben erhalten.</translation>
    </message>
</context>
<context>
    <name>veltrano::DocumentController</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>Its name does not end as those of the known kinds of documents do.</source>
        <translation>Der Name endet nicht wie der eines Dokuments, das Veltrano kennt.</translation>
    </message>
    <message>
        <source>“%1” could not be opened.</source>
        <translation>„%1“ konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
</context>
<context>
    <name>veltrano::DotView</name>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>on</source>
        <translation>an</translation>
    </message>
</context>
<context>
    <name>veltrano::EditorWindow</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
</context>
<context>
    <name>veltrano::GraphView</name>
    <message>
        <source>all %1 cents</source>
        <translation>überall %1 Cent</translation>
    </message>
    <message>
        <source>lowest %1 %2 cents, highest %3 %4 cents</source>
        <translation>am tiefsten %1 mit %2 Cent, am höchsten %3 mit %4 Cent</translation>
    </message>
</context>
<context>
    <name>veltrano::HelpNavigation</name>
    <message>
        <source>Caret on</source>
        <translation>Schreibmarke ein</translation>
    </message>
    <message>
        <source>Caret off</source>
        <translation>Schreibmarke aus</translation>
    </message>
    <message>
        <source>On another page</source>
        <translation>Auf einer anderen Seite</translation>
    </message>
    <message>
        <source>From the other end</source>
        <translation>Vom anderen Ende aus</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>veltrano::HelpPanel</name>
    <message>
        <source>The pages of the manual are missing. They belong into this folder:</source>
        <translation>Die Seiten der Hilfe fehlen. Sie gehören in diesen Ordner:</translation>
    </message>
</context>
<context>
    <name>veltrano::HilbertView</name>
    <message>
        <source>signal</source>
        <translation>Signal</translation>
    </message>
    <message>
        <source>no signal</source>
        <translation>kein Signal</translation>
    </message>
</context>
<context>
    <name>veltrano::IdleInhibitor</name>
    <message>
        <source>Listening to a piano</source>
        <translation>Hört einem Klavier zu</translation>
    </message>
</context>
<context>
    <name>veltrano::InTuneDotView</name>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
</context>
<context>
    <name>veltrano::LevelDotView</name>
    <message>
        <source>peak</source>
        <translation>Spitzenwert</translation>
    </message>
    <message>
        <source>overload</source>
        <translation>Vollaussteuerung</translation>
    </message>
    <message>
        <source>on</source>
        <translation>an</translation>
    </message>
</context>
<context>
    <name>veltrano::PianoView</name>
    <message>
        <source>no key</source>
        <translation>keine Taste</translation>
    </message>
</context>
<context>
    <name>veltrano::PreferencesPanel</name>
    <message>
        <source>Sine</source>
        <translation>Sinus</translation>
    </message>
    <message>
        <source>Triangle</source>
        <translation>Dreieck</translation>
    </message>
    <message>
        <source>Sawtooth</source>
        <translation>Sägezahn</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Rechteck</translation>
    </message>
</context>
<context>
    <name>veltrano::ReadoutGroup</name>
    <message>
        <source>%1 of %2 lights</source>
        <translation>%1 von %2 Leuchten</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>sharp</source>
        <translation>Kreuz</translation>
    </message>
    <message>
        <source>flat</source>
        <translation>Be</translation>
    </message>
</context>
<context>
    <name>veltrano::StretchEditor</name>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Octave %1</source>
        <translation>Oktave %1</translation>
    </message>
    <message>
        <source>%1%2: %3 cents</source>
        <translation>%1%2: %3 Cent</translation>
    </message>
</context>
<context>
    <name>veltrano::StrobeView</name>
    <message>
        <source>signal</source>
        <translation>Signal</translation>
    </message>
    <message>
        <source>no signal</source>
        <translation>kein Signal</translation>
    </message>
</context>
<context>
    <name>veltrano::TemperamentEditor</name>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Cent</source>
        <translation>Cent</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>Verhältnis</translation>
    </message>
    <message>
        <source>Hertz</source>
        <translation>Hertz</translation>
    </message>
    <message>
        <source>A is what the others are measured against.</source>
        <translation>A ist der Bezug für die anderen.</translation>
    </message>
</context>
<context>
    <name>veltrano::TuningMeterView</name>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>%1 cents</source>
        <translation>%1 Cent</translation>
    </message>
</context>
</TS>
