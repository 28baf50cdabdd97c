<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
  <name>Kalvora</name>
  <message>
    <source>Please, select a destination for converting %@s:</source>
    <translation>Bitte einen Zielordner für Dateien des Typs %@ wählen:</translation>
  </message>
  <message>
    <source>Do you really want to quit %@?</source>
    <translation>%@ wirklich beenden?</translation>
  </message>
  <message>
    <source>All of the conversions will be cancelled.</source>
    <translation>Alle Konvertierungen werden abgebrochen.</translation>
  </message>
  <message>
    <source>Cancel</source>
    <translation>Abbrechen</translation>
  </message>
  <message>
    <source>Quit</source>
    <translation>Beenden</translation>
  </message>
  <message>
    <source>You seem to be enjoying using Kalvora! If you like Kalvora, please, rate it on the AppStore.</source>
    <translation>Kalvora scheint Ihnen zu gefallen! Wenn Sie Kalvora mögen, bewerten Sie es bitte im AppStore.</translation>
  </message>
  <message>
    <source>This message will not be shown to you again, don't worry.</source>
    <translation>Diese Nachricht erscheint nicht noch einmal.</translation>
  </message>
  <message>
    <source>Rate</source>
    <translation>Bewerten</translation>
  </message>
  <message>
    <source>Starting...</source>
    <translation>Wird gestartet ...</translation>
  </message>
  <message>
    <source>All conversions are done!</source>
    <translation>Alle Konvertierungen sind fertig!</translation>
  </message>
  <message>
    <source>Paused</source>
    <translation>Angehalten</translation>
  </message>
  <message>
    <source>Conversion</source>
    <translation>Konvertierung</translation>
  </message>
  <message>
    <source>Finished</source>
    <translation>Fertig</translation>
  </message>
  <message>
    <source>Paused.</source>
    <translation>Angehalten.</translation>
  </message>
  <message>
    <source>Waiting to start.</source>
    <translation>Wartet auf den Start.</translation>
  </message>
  <message>
    <source>Unknown progress.</source>
    <translation>Fortschritt unbekannt.</translation>
  </message>
  <message>
    <source>Preset</source>
    <translation>Vorgabe</translation>
  </message>
  <message>
    <source>Default</source>
    <translation>Standard</translation>
  </message>
  <message>
    <source>Merge With</source>
    <translation>Zusammenfügen mit</translation>
  </message>
  <message>
    <source>Remove File</source>
    <translation>Datei entfernen</translation>
  </message>
  <message>
    <source>Stop</source>
    <translation>Stopp</translation>
  </message>
  <message>
    <source>The conversion of '%@' is still in progress. Do you wish to cancel?</source>
    <translation>Die Konvertierung von „%@“ läuft noch. Abbrechen?</translation>
  </message>
  <message>
    <source>Canceling this conversion will result in losing all progress so far.</source>
    <translation>Der bisherige Fortschritt geht beim Abbrechen verloren.</translation>
  </message>
  <message>
    <source>Continue with Conversion</source>
    <translation>Weiter konvertieren</translation>
  </message>
  <message>
    <source>Cancel Conversion</source>
    <translation>Konvertierung abbrechen</translation>
  </message>
  <message>
    <source>Don't ask again</source>
    <translation>Nicht mehr fragen</translation>
  </message>
  <message>
    <source>Enter new name:</source>
    <translation>Neuer Name:</translation>
  </message>
  <message>
    <source>OK</source>
    <translation>OK</translation>
  </message>
  <message>
    <source>Enter DVD name.</source>
    <translation>Name der DVD eingeben.</translation>
  </message>
  <message>
    <source>The name must not be empty.</source>
    <translation>Der Name darf nicht leer sein.</translation>
  </message>
  <message>
    <source>Start</source>
    <translation>Starten</translation>
  </message>
  <message>
    <source>Rename...</source>
    <translation>Umbenennen ...</translation>
  </message>
  <message>
    <source>Remove</source>
    <translation>Entfernen</translation>
  </message>
  <message>
    <source>Pause</source>
    <translation>Anhalten</translation>
  </message>
  <message>
    <source>Resume</source>
    <translation>Fortsetzen</translation>
  </message>
  <message>
    <source>Remove and Add Again to Queue</source>
    <translation>Entfernen und erneut hinzufügen</translation>
  </message>
  <message>
    <source>Replace Subtitles...</source>
    <translation>Untertitel ersetzen ...</translation>
  </message>
  <message>
    <source>Remove Subtitles...</source>
    <translation>Untertitel entfernen ...</translation>
  </message>
  <message>
    <source>Select Subtitles...</source>
    <translation>Untertitel wählen ...</translation>
  </message>
  <message>
    <source>Change DVD Name...</source>
    <translation>DVD-Namen ändern ...</translation>
  </message>
  <message>
    <source>Make DVD</source>
    <translation>DVD erstellen</translation>
  </message>
  <message>
    <source>Merge All</source>
    <translation>Alle zusammenfügen</translation>
  </message>
  <message>
    <source>Pause All</source>
    <translation>Alle anhalten</translation>
  </message>
  <message>
    <source>Conversion finished!</source>
    <translation>Konvertierung fertig!</translation>
  </message>
  <message>
    <source>Conversion failed!</source>
    <translation>Konvertierung fehlgeschlagen!</translation>
  </message>
  <message>
    <source>File %@ has been successfully converted.</source>
    <translation>Die Datei %@ wurde konvertiert.</translation>
  </message>
  <message>
    <source>Files %@ have been successfully stitched.</source>
    <translation>Die Dateien %@ wurden zusammengefügt.</translation>
  </message>
  <message>
    <source>Conversion for file %@ has failed.</source>
    <translation>Die Konvertierung der Datei %@ ist fehlgeschlagen.</translation>
  </message>
  <message>
    <source>Stitching files %@ has failed.</source>
    <translation>Das Zusammenfügen der Dateien %@ ist fehlgeschlagen.</translation>
  </message>
  <message>
    <source>Only files can be added.</source>
    <translation>Nur Dateien können hinzugefügt werden.</translation>
  </message>
  <message>
    <source>The folder has been read already.</source>
    <translation>Der Ordner wurde schon gelesen.</translation>
  </message>
  <message>
    <source>%@. What comes behind it is left out.</source>
    <translation>%@. Was dahinter kommt, wird ausgelassen.</translation>
  </message>
  <message>
    <source>The name is not UTF-8.</source>
    <translation>Der Name ist nicht in UTF-8.</translation>
  </message>
  <message>
    <source>Kalvora cannot convert '%@' because it is DRM-encrypted.</source>
    <translation>Kalvora kann „%@“ nicht konvertieren, denn die Datei ist durch DRM verschlüsselt.</translation>
  </message>
  <message>
    <source>Sorry, but Kalvora cannot remove DRM protection.</source>
    <translation>Kalvora kann den DRM-Schutz leider nicht entfernen.</translation>
  </message>
  <message>
    <source>The file is DRM-encrypted.</source>
    <translation>Die Datei ist durch DRM verschlüsselt.</translation>
  </message>
  <message>
    <source>This audio file seems to be corrupted. Do you wish to fix it?</source>
    <translation>Diese Audiodatei scheint beschädigt zu sein. Reparieren?</translation>
  </message>
  <message>
    <source>The original file will be untouched - a copy will be created.</source>
    <translation>Das Original bleibt unberührt – es entsteht eine Kopie.</translation>
  </message>
  <message>
    <source>Fix...</source>
    <translation>Reparieren ...</translation>
  </message>
  <message>
    <source>The sound data of this file is damaged; only a repaired copy can be converted.</source>
    <translation>Die Klangdaten dieser Datei sind beschädigt; nur eine reparierte Kopie kann konvertiert werden.</translation>
  </message>
  <message>
    <source>The file has no audio track %li.</source>
    <translation>Die Datei hat keine Tonspur %li.</translation>
  </message>
  <message>
    <source>File '%@' has more than one audio track. Please select the one you wish to convert.</source>
    <translation>Die Datei „%@“ hat mehr als eine Tonspur. Bitte wählen Sie die Spur, die konvertiert werden soll.</translation>
  </message>
  <message>
    <source>Select</source>
    <translation>Wählen</translation>
  </message>
  <message>
    <source>Skip File</source>
    <translation>Datei überspringen</translation>
  </message>
  <message>
    <source>channels</source>
    <translation>Kanäle</translation>
  </message>
  <message>
    <source>The file was skipped.</source>
    <translation>Die Datei wurde übersprungen.</translation>
  </message>
  <message>
    <source>No such file or folder.</source>
    <translation>Diese Datei oder diesen Ordner gibt es nicht.</translation>
  </message>
  <message>
    <source>There is no permission to read it.</source>
    <translation>Die Leseberechtigung fehlt.</translation>
  </message>
  <message>
    <source>The file is empty.</source>
    <translation>Die Datei ist leer.</translation>
  </message>
  <message>
    <source>File type is blacklisted by a file extension filter.</source>
    <translation>Dateien mit dieser Endung werden nicht angenommen.</translation>
  </message>
  <message>
    <source>This preset doesn't support conversions that merge multiple files together. Please select another preset.</source>
    <translation>Diese Vorgabe kann nicht mehrere Dateien zusammenfügen. Bitte wählen Sie eine andere Vorgabe.</translation>
  </message>
  <message>
    <source>There are conversions waiting to start that merge multiple files together. Not all presets support this.</source>
    <translation>Es warten Konvertierungen, die mehrere Dateien zusammenfügen. Nicht alle Vorgaben können das.</translation>
  </message>
  <message>
    <source>Couldn't start conversion.</source>
    <translation>Die Konvertierung konnte nicht gestartet werden.</translation>
  </message>
  <message>
    <source>Done.</source>
    <translation>Fertig.</translation>
  </message>
  <message>
    <source>Done!</source>
    <translation>Fertig!</translation>
  </message>
  <message>
    <source>Error converting.</source>
    <translation>Fehler beim Konvertieren.</translation>
  </message>
  <message>
    <source>Waiting to start...</source>
    <translation>Wartet auf den Start ...</translation>
  </message>
  <message>
    <source>Preparing subtitles...</source>
    <translation>Untertitel werden vorbereitet ...</translation>
  </message>
  <message>
    <source>Putting files together</source>
    <translation>Dateien werden zusammengestellt</translation>
  </message>
  <message>
    <source>User cancelled.</source>
    <translation>Vom Benutzer abgebrochen.</translation>
  </message>
  <message>
    <source>%ld h %ld min</source>
    <translation>%ld Std. %ld Min.</translation>
  </message>
  <message>
    <source>%ld min %ld sec</source>
    <translation>%ld Min. %ld Sek.</translation>
  </message>
  <message>
    <source>%ld sec</source>
    <translation>%ld Sek.</translation>
  </message>
  <message>
    <source>Debug Log</source>
    <translation>Protokoll</translation>
  </message>
  <message>
    <source>Release Notes</source>
    <translation>Neuigkeiten</translation>
  </message>
  <message>
    <source>Welcome to Kalvora</source>
    <translation>Willkommen bei Kalvora</translation>
  </message>
  <message>
    <source>• Drop videos, sound files, pictures, folders or a DVD folder on the window.
• Pick a preset for each kind of file, then press Start.
• Click a row's picture for everything that the row can do.
• Drop a row on another to make one file of both.
• Your files are never overwritten.</source>
    <translation>• Ziehen Sie Videos, Audiodateien, Bilder, Ordner oder einen DVD-Ordner auf das Fenster.
• Wählen Sie für jede Art von Datei eine Vorgabe und drücken Sie „Starten“.
• Ein Klick auf das Bild einer Zeile zeigt alles, was die Zeile kann.
• Ziehen Sie eine Zeile auf eine andere, um aus beiden eine Datei zu machen.
• Ihre Dateien werden nie überschrieben.</translation>
  </message>
  <message>
    <source>Drop files here</source>
    <translation>Dateien hierher ziehen</translation>
  </message>
  <message>
    <source>Videos, sound files, pictures, folders or a DVD folder. Then pick a preset and press Start.</source>
    <translation>Videos, Audiodateien, Bilder, Ordner oder einen DVD-Ordner. Wählen Sie dann eine Vorgabe und drücken Sie „Starten“.</translation>
  </message>
  <message>
    <source>Add Files...</source>
    <translation>Dateien hinzufügen ...</translation>
  </message>
  <message>
    <source>Progress of all conversions</source>
    <translation>Fortschritt aller Konvertierungen</translation>
  </message>
  <message>
    <source>History</source>
    <translation>Verlauf</translation>
  </message>
  <message>
    <source>Conversions</source>
    <translation>Konvertierungen</translation>
  </message>
  <message>
    <source>&amp;File</source>
    <translation>&amp;Datei</translation>
  </message>
  <message>
    <source>&amp;Add Files...</source>
    <translation>Dateien &amp;hinzufügen ...</translation>
  </message>
  <message>
    <source>&amp;Quit</source>
    <translation>&amp;Beenden</translation>
  </message>
  <message>
    <source>&amp;Queue</source>
    <translation>&amp;Warteschlange</translation>
  </message>
  <message>
    <source>&amp;View</source>
    <translation>&amp;Ansicht</translation>
  </message>
  <message>
    <source>&amp;History</source>
    <translation>&amp;Verlauf</translation>
  </message>
  <message>
    <source>&amp;Help</source>
    <translation>&amp;Hilfe</translation>
  </message>
  <message>
    <source>&amp;Release Notes</source>
    <translation>&amp;Neuigkeiten</translation>
  </message>
  <message>
    <source>&amp;Debug Log</source>
    <translation>&amp;Protokoll</translation>
  </message>
  <message>
    <source>&amp;Start</source>
    <translation>&amp;Starten</translation>
  </message>
  <message>
    <source>&amp;Pause</source>
    <translation>&amp;Anhalten</translation>
  </message>
  <message>
    <source>&amp;Merge All</source>
    <translation>Alle &amp;zusammenfügen</translation>
  </message>
  <message>
    <source>Make &amp;DVD</source>
    <translation>&amp;DVD erstellen</translation>
  </message>
  <message>
    <source>Clear &amp;Finished</source>
    <translation>&amp;Fertige entfernen</translation>
  </message>
  <message>
    <source>Clear &amp;Inactive</source>
    <translation>&amp;Untätige entfernen</translation>
  </message>
  <message>
    <source>All</source>
    <translation>Alle</translation>
  </message>
  <message>
    <source>Clear History</source>
    <translation>Verlauf löschen</translation>
  </message>
  <message>
    <source>Open</source>
    <translation>Öffnen</translation>
  </message>
  <message>
    <source>Show in Finder</source>
    <translation>Im Dateimanager zeigen</translation>
  </message>
  <message>
    <source>Subtitle Encoding</source>
    <translation>Zeichencodierung der Untertitel</translation>
  </message>
  <message>
    <source>Choose the text encoding of '%@' so that the text below reads correctly.</source>
    <translation>Wählen Sie die Zeichencodierung von „%@“ so, dass der Text unten lesbar ist.</translation>
  </message>
  <message>
    <source>Text encoding</source>
    <translation>Zeichencodierung</translation>
  </message>
  <message>
    <source>Preview</source>
    <translation>Vorschau</translation>
  </message>
  <message>
    <source>Likely for this file</source>
    <translation>Für diese Datei wahrscheinlich</translation>
  </message>
  <message>
    <source>There is no such file or folder.</source>
    <translation>Diese Datei oder diesen Ordner gibt es nicht.</translation>
  </message>
  <message>
    <source>There is a file of that name already.</source>
    <translation>Eine Datei dieses Namens gibt es schon.</translation>
  </message>
  <message>
    <source>Save as:</source>
    <translation>Sichern unter:</translation>
  </message>
  <message>
    <source>Custom</source>
    <translation>Eigene</translation>
  </message>
  <message>
    <source>Please, select a destination for conversion:</source>
    <translation>Bitte einen Zielordner für die Konvertierung wählen:</translation>
  </message>
  <message>
    <source>Frequency</source>
    <translation>Frequenz</translation>
  </message>
  <message>
    <source>Sample Bits</source>
    <translation>Bits je Abtastwert</translation>
  </message>
  <message>
    <source>Uses unsigned integers</source>
    <translation>Vorzeichenlose Ganzzahlen</translation>
  </message>
  <message>
    <source>Encoding</source>
    <translation>Codierung</translation>
  </message>
  <message>
    <source>Little Endian</source>
    <translation>Little Endian</translation>
  </message>
  <message>
    <source>Big Endian</source>
    <translation>Big Endian</translation>
  </message>
  <message>
    <source>Channels:</source>
    <translation>Kanäle:</translation>
  </message>
  <message>
    <source>As Source</source>
    <translation>Wie die Quelle</translation>
  </message>
  <message>
    <source>Mono</source>
    <translation>Mono</translation>
  </message>
  <message>
    <source>Stereo</source>
    <translation>Stereo</translation>
  </message>
  <message>
    <source>Surround</source>
    <translation>Surround</translation>
  </message>
  <message>
    <source>Sample Rate:</source>
    <translation>Abtastrate:</translation>
  </message>
  <message>
    <source>Bitrate:</source>
    <translation>Bitrate:</translation>
  </message>
  <message>
    <source>Max Bitrate:</source>
    <translation>Höchste Bitrate:</translation>
  </message>
  <message>
    <source>Frame rate:</source>
    <translation>Bildrate:</translation>
  </message>
  <message>
    <source>Same as source</source>
    <translation>Wie die Quelle</translation>
  </message>
  <message>
    <source>Include stereo track aside surround track when possible</source>
    <translation>Neben der Surround-Spur auch eine Stereospur, wenn möglich</translation>
  </message>
  <message>
    <source>BMP format.</source>
    <translation>BMP-Format.</translation>
  </message>
  <message>
    <source>GIF format.</source>
    <translation>GIF-Format.</translation>
  </message>
  <message>
    <source>JPEG format with %i%% compression.</source>
    <translation>JPEG-Format mit %i %% Qualität.</translation>
  </message>
  <message>
    <source>Compression (%):</source>
    <translation>Qualität (%):</translation>
  </message>
  <message>
    <source>PNG format.</source>
    <translation>PNG-Format.</translation>
  </message>
  <message>
    <source>Interlaced</source>
    <translation>Zeilensprung</translation>
  </message>
  <message>
    <source>TIFF format.</source>
    <translation>TIFF-Format.</translation>
  </message>
  <message>
    <source>Scale by percentage</source>
    <translation>Prozentual skalieren</translation>
  </message>
  <message>
    <source>Constrain size</source>
    <translation>Größe begrenzen</translation>
  </message>
  <message>
    <source>Percentage</source>
    <translation>Prozent</translation>
  </message>
  <message>
    <source>Allows scaling up</source>
    <translation>Darf vergrößern</translation>
  </message>
  <message>
    <source>The picture cannot be converted: %@</source>
    <translation>Das Bild kann nicht konvertiert werden: %@</translation>
  </message>
  <message>
    <source>The picture cannot be read: %@</source>
    <translation>Das Bild kann nicht gelesen werden: %@</translation>
  </message>
  <message>
    <source>The picture is too large: %li x %li pixels, where %li million pixels are the limit.</source>
    <translation>Das Bild ist zu groß: %li x %li Pixel, die Grenze sind %li Millionen Pixel.</translation>
  </message>
  <message>
    <source>Low</source>
    <translation>Niedrig</translation>
  </message>
  <message>
    <source>Medium</source>
    <translation>Mittel</translation>
  </message>
  <message>
    <source>High</source>
    <translation>Hoch</translation>
  </message>
  <message>
    <source>Keep Quality</source>
    <translation>Qualität beibehalten</translation>
  </message>
  <message>
    <source>Copy Track</source>
    <translation>Spur kopieren</translation>
  </message>
  <message>
    <source>Copy Subtitles from Source</source>
    <translation>Untertitel der Quelle übernehmen</translation>
  </message>
  <message>
    <source>Deinterlace</source>
    <translation>Zeilensprung entfernen</translation>
  </message>
  <message>
    <source>Burn Subtitles Into Video Track</source>
    <translation>Untertitel ins Bild brennen</translation>
  </message>
  <message>
    <source>This preset crops or pads your video.</source>
    <translation>Beschneidet das Video oder füllt es auf.</translation>
  </message>
  <message>
    <source>Creates an ISO file that you can burn right away.</source>
    <translation>Erstellt ein ISO-Abbild, das sofort gebrannt werden kann.</translation>
  </message>
  <message>
    <source>This preset creates an animated GIF file.</source>
    <translation>Erstellt ein animiertes GIF.</translation>
  </message>
  <message>
    <source>Container Format</source>
    <translation>Containerformat</translation>
  </message>
  <message>
    <source>File Format:</source>
    <translation>Dateiformat:</translation>
  </message>
  <message>
    <source>Rotates or flips video.</source>
    <translation>Dreht oder spiegelt das Video.</translation>
  </message>
  <message>
    <source>Transform type:</source>
    <translation>Art der Umformung:</translation>
  </message>
  <message>
    <source>Audio Format:</source>
    <translation>Audioformat:</translation>
  </message>
  <message>
    <source>Add (0.1 dB):</source>
    <translation>Zugabe (0,1 dB):</translation>
  </message>
  <message>
    <source>Use Hardware Acceleration</source>
    <translation>Hardwarebeschleunigung verwenden</translation>
  </message>
  <message>
    <source>Web Optimization preset works only on MP4 files.</source>
    <translation>Die Vorgabe „Web Optimization“ kann nur MP4-Dateien verarbeiten.</translation>
  </message>
  <message>
    <source>This preset moves the MooV atom to the front of the file.</source>
    <translation>Diese Vorgabe setzt das MooV-Atom an den Anfang der Datei.</translation>
  </message>
  <message>
    <source>%@ is not installed. Install the package "%@".</source>
    <translation>%@ ist nicht installiert. Installieren Sie das Paket „%@“.</translation>
  </message>
  <message>
    <source>Zero KB</source>
    <translation>0 KB</translation>
  </message>
  <message>
    <source>1 byte</source>
    <translation>1 Byte</translation>
  </message>
  <message>
    <source>%i bytes</source>
    <translation>%i Byte</translation>
  </message>
  <message>
    <source>Thumbnail at URL %@ is in invalid image format.</source>
    <translation>Das Vorschaubild %@ hat ein ungültiges Bildformat.</translation>
  </message>
  <message>
    <source>Kalvora needs you to grant it permission to the enclosing folder - please, select the folder enclosing the VIDEO_TS folder to continue (simply press the Open button).</source>
    <translation>Kalvora braucht Zugriff auf den übergeordneten Ordner – bitte wählen Sie den Ordner, der VIDEO_TS enthält (drücken Sie einfach „Öffnen“).</translation>
  </message>
  <message>
    <source>Track %i</source>
    <translation>Spur %i</translation>
  </message>
  <message>
    <source>Unrecognized file format.</source>
    <translation>Unbekanntes Dateiformat.</translation>
  </message>
  <message>
    <source>There is no more space left on your hard drive.</source>
    <translation>Auf der Festplatte ist kein Platz mehr.</translation>
  </message>
  <message>
    <source>Remove unnecessary files and try the conversion again.</source>
    <translation>Löschen Sie nicht benötigte Dateien und versuchen Sie es noch einmal.</translation>
  </message>
  <message>
    <source>The file to be converted cannot be found. Please make sure that you haven't moved or renamed the files or enclosing folders before the conversion started.</source>
    <translation>Die Datei, die konvertiert werden soll, wurde nicht gefunden. Bitte prüfen Sie, ob Dateien oder übergeordnete Ordner vor dem Start verschoben oder umbenannt wurden.</translation>
  </message>
  <message>
    <source>Re-add the files into the queue and start the conversion again. Renaming or moving the file before the conversion starts is currently not supported.</source>
    <translation>Fügen Sie die Dateien erneut hinzu und starten Sie die Konvertierung noch einmal. Dateien dürfen vor dem Start nicht umbenannt oder verschoben werden.</translation>
  </message>
  <message>
    <source>None</source>
    <translation>Keine</translation>
  </message>
  <message>
    <source>Audio</source>
    <translation>Audio</translation>
  </message>
  <message>
    <source>Video</source>
    <translation>Video</translation>
  </message>
  <message>
    <source>Picture</source>
    <translation>Bild</translation>
  </message>
  <message>
    <source>DVD</source>
    <translation>DVD</translation>
  </message>
  <message>
    <source>Unicode</source>
    <translation>Unicode</translation>
  </message>
  <message>
    <source>Western</source>
    <translation>Westlich</translation>
  </message>
  <message>
    <source>Central European</source>
    <translation>Mitteleuropäisch</translation>
  </message>
  <message>
    <source>Cyrillic</source>
    <translation>Kyrillisch</translation>
  </message>
  <message>
    <source>Greek</source>
    <translation>Griechisch</translation>
  </message>
  <message>
    <source>Turkish</source>
    <translation>Türkisch</translation>
  </message>
  <message>
    <source>Hebrew</source>
    <translation>Hebräisch</translation>
  </message>
  <message>
    <source>Arabic</source>
    <translation>Arabisch</translation>
  </message>
  <message>
    <source>Baltic</source>
    <translation>Baltisch</translation>
  </message>
  <message>
    <source>Vietnamese</source>
    <translation>Vietnamesisch</translation>
  </message>
  <message>
    <source>Thai</source>
    <translation>Thailändisch</translation>
  </message>
  <message>
    <source>Simplified Chinese</source>
    <translation>Vereinfachtes Chinesisch</translation>
  </message>
  <message>
    <source>Traditional Chinese</source>
    <translation>Traditionelles Chinesisch</translation>
  </message>
  <message>
    <source>Japanese</source>
    <translation>Japanisch</translation>
  </message>
  <message>
    <source>Korean</source>
    <translation>Koreanisch</translation>
  </message>
  <message>
    <source>This preset only changes the video's container and does no transcoding.

Current format selected: %@</source>
    <translation>Ändert nur den Container des Videos und codiert nichts neu.

Gewähltes Format: %@</translation>
  </message>
  <message>
    <source>This preset  changes the video's container and transcodes audio.

Current format selected: %@ %@</source>
    <translation>Ändert den Container des Videos und codiert den Ton neu.

Gewähltes Format: %@ %@</translation>
  </message>
  <message>
    <source>This preset moves the MooV atom in the movies to the front. Works only on MP4 files.</source>
    <translation>Setzt das MooV-Atom von Filmen an den Anfang. Nur für MP4-Dateien.</translation>
  </message>
  <message>
    <source>
Output split into parts.</source>
    <translation>
Ausgabe in Teilen.</translation>
  </message>
  <message>
    <source>%li-bit</source>
    <translation>%li Bit</translation>
  </message>
  <message>
    <source>&amp;Conversion</source>
    <translation>&amp;Konvertierung</translation>
  </message>
  <message>
    <source>Add F&amp;older...</source>
    <translation>&amp;Ordner hinzufügen ...</translation>
  </message>
  <message>
    <source>Close</source>
    <translation>Schließen</translation>
  </message>
  <message>
    <source>Audio and Video: Audio Adjustment</source>
    <translation>Audio und Video: Anpassung des Tons</translation>
  </message>
  <message>
    <source>Loading files: %@ left</source>
    <translation>Dateien werden geladen: noch %@</translation>
  </message>
  <message>
    <source>'%@' has been moved or deleted.</source>
    <translation>„%@“ wurde verschoben oder gelöscht.</translation>
  </message>
  <message>
    <source>No Action</source>
    <translation>Keine Aktion</translation>
  </message>
  <message>
    <source>Preset &amp;Settings</source>
    <translation>&amp;Einstellungen der Vorgaben</translation>
  </message>
  <message>
    <source>Preset Settings</source>
    <translation>Einstellungen der Vorgabe</translation>
  </message>
  <message>
    <source>Preview image. Interact for menu.</source>
    <translation>Vorschaubild. Öffnet das Menü.</translation>
  </message>
  <message>
    <source>This is no regular file.</source>
    <translation>Dies ist keine gewöhnliche Datei.</translation>
  </message>
  <message>
    <source>This preset has no settings.</source>
    <translation>Diese Vorgabe hat keine Einstellungen.</translation>
  </message>
  <message>
    <source>★ likely for this file</source>
    <translation>★ wahrscheinlich bei dieser Datei</translation>
  </message>
  <message>
    <source>Audio: AAC</source>
    <translation>Audio: AAC</translation>
  </message>
  <message>
    <source>Audio: AIFF</source>
    <translation>Audio: AIFF</translation>
  </message>
  <message>
    <source>Audio: Apple Lossless</source>
    <translation>Audio: Apple Lossless</translation>
  </message>
  <message>
    <source>Audio: FLAC</source>
    <translation>Audio: FLAC</translation>
  </message>
  <message>
    <source>Audio: M4A (AAC)</source>
    <translation>Audio: M4A (AAC)</translation>
  </message>
  <message>
    <source>Audio: MP2</source>
    <translation>Audio: MP2</translation>
  </message>
  <message>
    <source>Audio: MP3</source>
    <translation>Audio: MP3</translation>
  </message>
  <message>
    <source>Audio: Ogg Vorbis</source>
    <translation>Audio: Ogg Vorbis</translation>
  </message>
  <message>
    <source>Audio: WAV</source>
    <translation>Audio: WAV</translation>
  </message>
  <message>
    <source>Audio: WMA</source>
    <translation>Audio: WMA</translation>
  </message>
  <message>
    <source>The destination folder has been moved or removed during the conversion.</source>
    <translation>Der Zielordner wurde während der Konvertierung verschoben oder entfernt.</translation>
  </message>
  <message>
    <source>Put it back or choose another one, and try the conversion again.</source>
    <translation>Stellen Sie ihn wieder her oder wählen Sie einen anderen, und konvertieren Sie noch einmal.</translation>
  </message>
  <message>
    <source>Kalvora will ask you for a destination for each conversion.</source>
    <translation>Kalvora fragt bei jeder Konvertierung nach einem Zielordner.</translation>
  </message>
  <message>
    <source>Press cancel in the following open dialog to be asked for destination for each conversion.</source>
    <translation>Brechen Sie den folgenden Dialog ab, um bei jeder Konvertierung nach dem Zielordner gefragt zu werden.</translation>
  </message>
  <message>
    <source>This is the first time you're running Kalvora. You need to select a folder where to save all converted files.</source>
    <translation>Sie verwenden Kalvora zum ersten Mal. Wählen Sie einen Ordner, in dem alle konvertierten Dateien gesichert werden.</translation>
  </message>
  <message>
    <source>This can be changed later on in the preferences.</source>
    <translation>Das lässt sich später in den Einstellungen ändern.</translation>
  </message>
  <message>
    <source>iPhone Ringtone</source>
    <translation>iPhone Ringtone</translation>
  </message>
  <message>
    <source>Only %@ of %@ was converted: the source is incomplete.</source>
    <translation>Nur %@ von %@ wurde konvertiert: Die Quelle ist unvollständig.</translation>
  </message>
  <message>
    <source>Only %@ of %@ was converted: the source is damaged.</source>
    <translation>Nur %@ von %@ wurde konvertiert: Die Quelle ist beschädigt.</translation>
  </message>
  <message>
    <source>The source is damaged in one place.</source>
    <translation>Die Quelle ist an einer Stelle beschädigt.</translation>
  </message>
  <message>
    <source>The source is damaged in %i places.</source>
    <translation>Die Quelle ist an %i Stellen beschädigt.</translation>
  </message>
  <message>
    <source>The result has no picture although the source has one.</source>
    <translation>Das Ergebnis hat kein Bild, obwohl die Quelle eines hat.</translation>
  </message>
  <message>
    <source>The result has no sound although the source has.</source>
    <translation>Das Ergebnis hat keinen Ton, obwohl die Quelle welchen hat.</translation>
  </message>
  <message>
    <source>The result has only %i of %i audio tracks.</source>
    <translation>Das Ergebnis hat nur %i von %i Tonspuren.</translation>
  </message>
  <message>
    <source>The result has no subtitles although the source has.</source>
    <translation>Das Ergebnis hat keine Untertitel, obwohl die Quelle welche hat.</translation>
  </message>
  <message>
    <source>The picture of the result has %i x %i instead of %i x %i pixels.</source>
    <translation>Das Bild des Ergebnisses hat %i x %i statt %i x %i Pixel.</translation>
  </message>
  <message>
    <source>The result is empty: nothing in the source could be converted.</source>
    <translation>Das Ergebnis ist leer: Nichts in der Quelle ließ sich konvertieren.</translation>
  </message>
  <message>
    <source>The result cannot be opened.</source>
    <translation>Das Ergebnis lässt sich nicht öffnen.</translation>
  </message>
  <message>
    <source>The disc image is empty.</source>
    <translation>Das Disc-Abbild ist leer.</translation>
  </message>
  <message>
    <source>The disc image is smaller than what it should hold.</source>
    <translation>Das Disc-Abbild ist kleiner als das, was es enthalten soll.</translation>
  </message>
  <message>
    <source>Use for all files that follow</source>
    <translation>Für alle folgenden Dateien verwenden</translation>
  </message>
  <message>
    <source>Use for all %ld files</source>
    <translation>Für alle %ld Dateien verwenden</translation>
  </message>
  <message>
    <source>1 file was not added</source>
    <translation>1 Datei wurde nicht hinzugefügt</translation>
  </message>
  <message>
    <source>%ld files were not added</source>
    <translation>%ld Dateien wurden nicht hinzugefügt</translation>
  </message>
  <message>
    <source>The folder holds a DVD</source>
    <translation>Der Ordner enthält eine DVD</translation>
  </message>
  <message>
    <source>The folders hold %ld DVDs</source>
    <translation>Die Ordner enthalten %ld DVDs</translation>
  </message>
  <message>
    <source>1 other file in the folders was skipped</source>
    <translation>1 weitere Datei in den Ordnern wurde übersprungen</translation>
  </message>
  <message>
    <source>%ld other files in the folders were skipped</source>
    <translation>%ld weitere Dateien in den Ordnern wurden übersprungen</translation>
  </message>
  <message>
    <source>This folder is a DVD.</source>
    <translation>Dieser Ordner ist eine DVD.</translation>
  </message>
  <message>
    <source>Add the Disc</source>
    <translation>DVD hinzufügen</translation>
  </message>
  <message>
    <source>Show...</source>
    <translation>Anzeigen ...</translation>
  </message>
  <message>
    <source>Copy</source>
    <translation>Kopieren</translation>
  </message>
  <message>
    <source>Files That Were Not Added</source>
    <translation>Nicht hinzugefügte Dateien</translation>
  </message>
  <message>
    <source>Name</source>
    <translation>Name</translation>
  </message>
  <message>
    <source>Folder</source>
    <translation>Ordner</translation>
  </message>
  <message>
    <source>Reason</source>
    <translation>Grund</translation>
  </message>
  <message>
    <source>Add</source>
    <translation>Hinzufügen</translation>
  </message>
  <message>
    <source>Add Files and Folders</source>
    <translation>Dateien und Ordner hinzufügen</translation>
  </message>
  <message>
    <source>About %@ for all %ld files</source>
    <translation>Etwa %@ für alle %ld Dateien</translation>
  </message>
  <message>
    <source>%ld more waiting</source>
    <translation>%ld weitere in der Warteschlange</translation>
  </message>
  <message>
    <source>Current files: %@, %ld more waiting</source>
    <translation>Laufende Dateien: %@, %ld weitere warten</translation>
  </message>
  <message>
    <source>Subtitles: %@ (%@)</source>
    <translation>Untertitel: %@ (%@)</translation>
  </message>
  <message>
    <source>The subtitles in '%@' are not used: their text encoding is not known. Select the file in the row's menu to choose it.</source>
    <translation>Die Untertitel in „%@“ werden nicht verwendet, da ihre Textkodierung unbekannt ist. Wählen Sie die Datei im Menü der Zeile aus, um sie festzulegen.</translation>
  </message>
  <message>
    <source>The preferences in %@ were damaged; they are kept as %@</source>
    <translation>Die Einstellungen in %@ waren beschädigt; sie sind als %@ aufbewahrt</translation>
  </message>
  <message>
    <source>Protected music files cannot be converted.</source>
    <translation>Geschützte Musikdateien können nicht konvertiert werden.</translation>
  </message>
  <message>
    <source>The file is in the queue already.</source>
    <translation>Die Datei ist bereits in der Warteschlange.</translation>
  </message>
  <message>
    <source>PAL</source>
    <translation>PAL</translation>
  </message>
  <message>
    <source>NTSC</source>
    <translation>NTSC</translation>
  </message>
  <message>
    <source>24 fps</source>
    <translation>24 Bilder/s</translation>
  </message>
  <message>
    <source>30 fps</source>
    <translation>30 Bilder/s</translation>
  </message>
  <message>
    <source>Maximum width</source>
    <translation>Größte Breite</translation>
  </message>
  <message>
    <source>Maximum height</source>
    <translation>Größte Höhe</translation>
  </message>
  <message>
    <source>Video Quality:</source>
    <translation>Videoqualität:</translation>
  </message>
  <message>
    <source>Audio Quality:</source>
    <translation>Audioqualität:</translation>
  </message>
  <message>
    <source>X Offset:</source>
    <translation>X-Versatz:</translation>
  </message>
  <message>
    <source>Y Offset:</source>
    <translation>Y-Versatz:</translation>
  </message>
  <message>
    <source>Width:</source>
    <translation>Breite:</translation>
  </message>
  <message>
    <source>Height:</source>
    <translation>Höhe:</translation>
  </message>
  <message>
    <source>Profile</source>
    <translation>Profil</translation>
  </message>
  <message>
    <source>Proxy</source>
    <translation>Proxy</translation>
  </message>
  <message>
    <source>LT</source>
    <translation>LT</translation>
  </message>
  <message>
    <source>Standard</source>
    <translation>Standard</translation>
  </message>
  <message>
    <source>HQ</source>
    <translation>HQ</translation>
  </message>
  <message>
    <source>The conversion failed.</source>
    <translation>Die Konvertierung ist fehlgeschlagen.</translation>
  </message>
  <message>
    <source>Video: H.264
Audio: AAC</source>
    <translation>Video: H.264
Audio: AAC</translation>
  </message>
  <message>
    <source>Video: MPEG4
Audio: MP3</source>
    <translation>Video: MPEG4
Audio: MP3</translation>
  </message>
  <message>
    <source>Video: H.264 (limited to %i x %i)
Audio: AAC</source>
    <translation>Video: H.264 (höchstens %i x %i)
Audio: AAC</translation>
  </message>
  <message>
    <source>Video: MPEG4 (limited to %i x %i)
Audio: AAC</source>
    <translation>Video: MPEG4 (höchstens %i x %i)
Audio: AAC</translation>
  </message>
  <message>
    <source>The subtitles in '%@' were left out.</source>
    <translation>Die Untertitel in „%@“ wurden weggelassen.</translation>
  </message>
</context>
</TS>
