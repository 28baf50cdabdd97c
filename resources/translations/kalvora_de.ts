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
    <source>%@. The rest of the folder was skipped.</source>
    <translation>%@. Der Rest des Ordners wurde übersprungen.</translation>
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
    <source>The file to be converted cannot be found: it has been moved, renamed or removed.</source>
    <translation>Die zu konvertierende Datei wurde nicht gefunden: Sie wurde verschoben, umbenannt oder entfernt.</translation>
  </message>
  <message>
    <source>Put the file back, or add it again from its new place.</source>
    <translation>Legen Sie die Datei zurück, oder fügen Sie sie von ihrem neuen Ort aus hinzu.</translation>
  </message>
  <message>
    <source>You have used up the space that you may use on this disk.</source>
    <translation>Sie haben den Platz aufgebraucht, den Sie auf diesem Datenträger belegen dürfen.</translation>
  </message>
  <message>
    <source>The result is larger than a file on this disk may be.</source>
    <translation>Das Ergebnis ist größer, als eine Datei auf diesem Datenträger sein darf.</translation>
  </message>
  <message>
    <source>Choose a folder on another disk (on a disk in the FAT format a file holds at most 4 GB), or a lower quality.</source>
    <translation>Wählen Sie einen Ordner auf einem anderen Datenträger (im Format FAT fasst eine Datei höchstens 4 GB) oder eine geringere Qualität.</translation>
  </message>
  <message>
    <source>The disk of the destination folder is write-protected.</source>
    <translation>Der Datenträger des Zielordners ist schreibgeschützt.</translation>
  </message>
  <message>
    <source>You have no permission to write into the destination folder.</source>
    <translation>Sie dürfen nicht in den Zielordner schreiben.</translation>
  </message>
  <message>
    <source>The destination folder does not exist.</source>
    <translation>Den Zielordner gibt es nicht.</translation>
  </message>
  <message>
    <source>A folder has the name that the result should get.</source>
    <translation>Ein Ordner hat den Namen, den das Ergebnis bekommen soll.</translation>
  </message>
  <message>
    <source>The name of the result is too long for this disk.</source>
    <translation>Der Name des Ergebnisses ist zu lang für diesen Datenträger.</translation>
  </message>
  <message>
    <source>Give the file a shorter name and add it again.</source>
    <translation>Geben Sie der Datei einen kürzeren Namen, und fügen Sie sie noch einmal hinzu.</translation>
  </message>
  <message>
    <source>The result would replace the file that is converted.</source>
    <translation>Das Ergebnis würde die Datei ersetzen, die konvertiert wird.</translation>
  </message>
  <message>
    <source>There is no destination folder.</source>
    <translation>Es gibt keinen Zielordner.</translation>
  </message>
  <message>
    <source>You have no permission to read the file.</source>
    <translation>Sie dürfen die Datei nicht lesen.</translation>
  </message>
  <message>
    <source>Change the permissions of the file, or copy it into a folder of yours.</source>
    <translation>Ändern Sie die Zugriffsrechte der Datei, oder kopieren Sie sie in einen eigenen Ordner.</translation>
  </message>
  <message>
    <source>This is a folder and no media file.</source>
    <translation>Das ist ein Ordner und keine Mediendatei.</translation>
  </message>
  <message>
    <source>Add the files in the folder instead.</source>
    <translation>Fügen Sie stattdessen die Dateien im Ordner hinzu.</translation>
  </message>
  <message>
    <source>There is not enough memory.</source>
    <translation>Der Arbeitsspeicher reicht nicht aus.</translation>
  </message>
  <message>
    <source>A library that ffmpeg needs is missing or damaged.</source>
    <translation>Eine Bibliothek, die ffmpeg braucht, fehlt oder ist beschädigt.</translation>
  </message>
  <message>
    <source>A program that the conversion needs cannot be started.</source>
    <translation>Ein Programm, das die Konvertierung braucht, lässt sich nicht starten.</translation>
  </message>
  <message>
    <source>Too many files are open at once.</source>
    <translation>Es sind zu viele Dateien gleichzeitig geöffnet.</translation>
  </message>
  <message>
    <source>The converter was ended by the system or another program; perhaps the memory ran out.</source>
    <translation>Der Konverter wurde vom System oder einem anderen Programm beendet; vielleicht ging der Arbeitsspeicher aus.</translation>
  </message>
  <message>
    <source>The converter crashed.</source>
    <translation>Der Konverter ist abgestürzt.</translation>
  </message>
  <message>
    <source>Try again. If it happens once more, update ffmpeg, or save the file anew with another program.</source>
    <translation>Versuchen Sie es noch einmal. Geschieht es wieder, aktualisieren Sie ffmpeg, oder speichern Sie die Datei mit einem anderen Programm neu.</translation>
  </message>
  <message>
    <source>The converter has used all the processor time that it may use on this computer.</source>
    <translation>Der Konverter hat die Prozessorzeit verbraucht, die es auf diesem Rechner verwenden darf.</translation>
  </message>
  <message>
    <source>Choose faster settings, or ask the administrator of this computer for more time.</source>
    <translation>Wählen Sie schnellere Einstellungen, oder bitten Sie den Betreuer dieses Rechners um mehr Zeit.</translation>
  </message>
  <message>
    <source>Another program or the system asked the converter to stop.</source>
    <translation>Ein anderes Programm oder das System hat den Konverter angehalten.</translation>
  </message>
  <message>
    <source>Try the conversion again.</source>
    <translation>Konvertieren Sie noch einmal.</translation>
  </message>
  <message>
    <source>The installed ffmpeg cannot draw subtitles into the picture.</source>
    <translation>Das installierte ffmpeg kann keine Untertitel ins Bild zeichnen.</translation>
  </message>
  <message>
    <source>The installed ffmpeg lacks a filter that the preset needs.</source>
    <translation>Dem installierten ffmpeg fehlt ein Filter, den die Voreinstellung braucht.</translation>
  </message>
  <message>
    <source>The installed ffmpeg lacks the encoder that the preset needs.</source>
    <translation>Dem installierten ffmpeg fehlt der Encoder, den die Voreinstellung braucht.</translation>
  </message>
  <message>
    <source>The installed ffmpeg does not know a setting of the preset.</source>
    <translation>Das installierte ffmpeg kennt eine Einstellung der Voreinstellung nicht.</translation>
  </message>
  <message>
    <source>The installed ffmpeg cannot write this format.</source>
    <translation>Das installierte ffmpeg kann dieses Format nicht schreiben.</translation>
  </message>
  <message>
    <source>The graphics processor or its driver cannot encode this video.</source>
    <translation>Der Grafikprozessor oder sein Treiber kann dieses Video nicht kodieren.</translation>
  </message>
  <message>
    <source>Choose a preset with another video format, or install the driver of the graphics processor.</source>
    <translation>Wählen Sie eine Voreinstellung mit einem anderen Videoformat, oder installieren Sie den Treiber des Grafikprozessors.</translation>
  </message>
  <message>
    <source>The file is protected against copying.</source>
    <translation>Die Datei ist kopiergeschützt.</translation>
  </message>
  <message>
    <source>Use a copy without protection, if its provider offers one.</source>
    <translation>Verwenden Sie eine Fassung ohne Kopierschutz, wenn der Anbieter eine hat.</translation>
  </message>
  <message>
    <source>The installed ffmpeg cannot decode a track of the file.</source>
    <translation>Das installierte ffmpeg kann eine Spur der Datei nicht dekodieren.</translation>
  </message>
  <message>
    <source>The subtitles file is in no format that can be read.</source>
    <translation>Die Untertiteldatei hat kein lesbares Format.</translation>
  </message>
  <message>
    <source>Choose another subtitles file, or try again without the subtitles.</source>
    <translation>Wählen Sie eine andere Untertiteldatei, oder versuchen Sie es ohne Untertitel.</translation>
  </message>
  <message>
    <source>The text of the subtitles is in another encoding.</source>
    <translation>Der Text der Untertitel hat eine andere Kodierung.</translation>
  </message>
  <message>
    <source>Choose the right encoding of the subtitles, or try again without them.</source>
    <translation>Wählen Sie die richtige Kodierung der Untertitel, oder versuchen Sie es ohne sie.</translation>
  </message>
  <message>
    <source>The format of the result cannot hold these subtitles.</source>
    <translation>Das Format des Ergebnisses kann diese Untertitel nicht aufnehmen.</translation>
  </message>
  <message>
    <source>The encoder takes only pictures with an even width and height.</source>
    <translation>Der Encoder nimmt nur Bilder mit gerader Breite und Höhe.</translation>
  </message>
  <message>
    <source>Set an even size in the preset, or choose another preset.</source>
    <translation>Stellen Sie in der Voreinstellung eine gerade Größe ein, oder wählen Sie eine andere.</translation>
  </message>
  <message>
    <source>The picture is too large for the encoder.</source>
    <translation>Das Bild ist zu groß für den Encoder.</translation>
  </message>
  <message>
    <source>Set a smaller size in the preset.</source>
    <translation>Stellen Sie in der Voreinstellung eine kleinere Größe ein.</translation>
  </message>
  <message>
    <source>The format allows only a few sizes of the picture, and this is none of them.</source>
    <translation>Das Format lässt nur wenige Bildgrößen zu, diese nicht.</translation>
  </message>
  <message>
    <source>The encoder's profile cannot hold the colors of this video.</source>
    <translation>Das Profil des Encoders kann die Farben dieses Videos nicht aufnehmen.</translation>
  </message>
  <message>
    <source>The format does not allow this number of frames per second.</source>
    <translation>Das Format lässt diese Anzahl von Bildern pro Sekunde nicht zu.</translation>
  </message>
  <message>
    <source>The format does not allow this sample rate.</source>
    <translation>Das Format lässt diese Abtastrate nicht zu.</translation>
  </message>
  <message>
    <source>The format cannot hold this number of audio channels.</source>
    <translation>Das Format kann so viele Tonkanäle nicht aufnehmen.</translation>
  </message>
  <message>
    <source>Choose fewer channels in the preset, or another preset.</source>
    <translation>Wählen Sie in der Voreinstellung weniger Kanäle oder eine andere Voreinstellung.</translation>
  </message>
  <message>
    <source>The format does not allow this bit rate.</source>
    <translation>Das Format lässt diese Bitrate nicht zu.</translation>
  </message>
  <message>
    <source>The part to be cut out is larger than the picture, or empty.</source>
    <translation>Der Ausschnitt ist größer als das Bild oder leer.</translation>
  </message>
  <message>
    <source>The volume or speed of the preset is outside the limits.</source>
    <translation>Die Lautstärke oder Geschwindigkeit der Voreinstellung liegt außerhalb der Grenzen.</translation>
  </message>
  <message>
    <source>The times of a track are missing or not in order, so it cannot be copied.</source>
    <translation>Die Zeiten einer Spur fehlen oder sind ungeordnet, darum lässt sie sich nicht kopieren.</translation>
  </message>
  <message>
    <source>The format of the result cannot hold a track of the file as it is.</source>
    <translation>Das Format des Ergebnisses kann eine Spur der Datei nicht unverändert aufnehmen.</translation>
  </message>
  <message>
    <source>The files differ in size, so they cannot be joined.</source>
    <translation>Die Bilder der Dateien sind verschieden groß, darum lassen sie sich nicht verbinden.</translation>
  </message>
  <message>
    <source>Convert the files one by one first, with the same settings.</source>
    <translation>Konvertieren Sie die Dateien zuerst einzeln mit gleichen Einstellungen.</translation>
  </message>
  <message>
    <source>One of the files lacks a track that the others have, so they cannot be joined.</source>
    <translation>Einer der Dateien fehlt eine Spur, die die anderen haben, darum lassen sie sich nicht verbinden.</translation>
  </message>
  <message>
    <source>Convert the files one by one, or remove the file without this track.</source>
    <translation>Konvertieren Sie die Dateien einzeln, oder entfernen Sie die Datei ohne diese Spur.</translation>
  </message>
  <message>
    <source>The chosen track is not in the file any more.</source>
    <translation>Die gewählte Spur ist nicht mehr in der Datei.</translation>
  </message>
  <message>
    <source>Remove the file and add it again.</source>
    <translation>Entfernen Sie die Datei, und fügen Sie sie noch einmal hinzu.</translation>
  </message>
  <message>
    <source>The file has no track of the kind that the preset makes.</source>
    <translation>Die Datei hat keine Spur der Art, die die Voreinstellung erzeugt.</translation>
  </message>
  <message>
    <source>Choose a preset that fits the file.</source>
    <translation>Wählen Sie eine Voreinstellung, die zur Datei passt.</translation>
  </message>
  <message>
    <source>The file does not tell the size of its picture.</source>
    <translation>Die Datei nennt die Größe ihres Bildes nicht.</translation>
  </message>
  <message>
    <source>A track of the file holds nothing that can be decoded.</source>
    <translation>Eine Spur der Datei enthält nichts, was sich dekodieren lässt.</translation>
  </message>
  <message>
    <source>You have no permission to read files of the DVD folder.</source>
    <translation>Sie dürfen Dateien des DVD-Ordners nicht lesen.</translation>
  </message>
  <message>
    <source>Change the permissions of the folder VIDEO_TS, or copy it into a folder of yours.</source>
    <translation>Ändern Sie die Zugriffsrechte des Ordners VIDEO_TS, oder kopieren Sie ihn in einen eigenen Ordner.</translation>
  </message>
  <message>
    <source>The DVD folder is incomplete: a file with the ending IFO is missing.</source>
    <translation>Der DVD-Ordner ist unvollständig: Eine Datei mit der Endung IFO fehlt.</translation>
  </message>
  <message>
    <source>The DVD folder is damaged: a file with the ending IFO cannot be understood.</source>
    <translation>Der DVD-Ordner ist beschädigt: Eine Datei mit der Endung IFO ist unverständlich.</translation>
  </message>
  <message>
    <source>The folder holds no DVD: it has no folder VIDEO_TS.</source>
    <translation>Der Ordner enthält keine DVD: Ihm fehlt der Ordner VIDEO_TS.</translation>
  </message>
  <message>
    <source>A file of the disc is larger than the 4 GB that an image of a disc can hold.</source>
    <translation>Eine Datei der DVD ist größer als die 4 GB, die ein Abbild aufnehmen kann.</translation>
  </message>
  <message>
    <source>Choose a lower bit rate in the preset, or put fewer or shorter films on the disc.</source>
    <translation>Wählen Sie in der Voreinstellung eine geringere Bitrate oder weniger oder kürzere Filme.</translation>
  </message>
  <message>
    <source>The name of the disc is too long.</source>
    <translation>Der Name der DVD ist zu lang.</translation>
  </message>
  <message>
    <source>Give the disc a shorter name.</source>
    <translation>Geben Sie der DVD einen kürzeren Namen.</translation>
  </message>
  <message>
    <source>The disc could not be written to its end.</source>
    <translation>Die DVD konnte nicht zu Ende geschrieben werden.</translation>
  </message>
  <message>
    <source>See that there is enough space and that the disk can be written to, and try again.</source>
    <translation>Sorgen Sie für genügend Platz und Schreibrechte, und versuchen Sie es noch einmal.</translation>
  </message>
  <message>
    <source>An intermediate file has been removed during the conversion.</source>
    <translation>Eine Zwischendatei wurde während der Konvertierung entfernt.</translation>
  </message>
  <message>
    <source>There is no film that can be put on the disc.</source>
    <translation>Es gibt keinen Film, der auf die DVD passt.</translation>
  </message>
  <message>
    <source>The disc program dvdauthor does not understand what the disc should hold.</source>
    <translation>Das Programm dvdauthor versteht nicht, was die DVD enthalten soll.</translation>
  </message>
  <message>
    <source>The file holds no picture of a kind that can be read, whatever its name says.</source>
    <translation>Die Datei enthält kein Bild einer lesbaren Art, was immer ihr Name sagt.</translation>
  </message>
  <message>
    <source>The picture is incomplete.</source>
    <translation>Das Bild ist unvollständig.</translation>
  </message>
  <message>
    <source>The picture is damaged.</source>
    <translation>Das Bild ist beschädigt.</translation>
  </message>
  <message>
    <source>Make the picture smaller with another program first.</source>
    <translation>Verkleinern Sie das Bild zuerst mit einem anderen Programm.</translation>
  </message>
  <message>
    <source>The file is incomplete: the index that belongs to it is missing.</source>
    <translation>Die Datei ist unvollständig: Das Verzeichnis ihrer Inhalte fehlt.</translation>
  </message>
  <message>
    <source>The file cannot be read to its end: it is incomplete, or its disk has a fault.</source>
    <translation>Die Datei lässt sich nicht zu Ende lesen: Sie ist unvollständig, oder ihr Datenträger ist fehlerhaft.</translation>
  </message>
  <message>
    <source>The file is damaged, or it is no media file.</source>
    <translation>Die Datei ist beschädigt oder keine Mediendatei.</translation>
  </message>
  <message>
    <source>Most of the file could not be decoded: it is damaged or protected.</source>
    <translation>Der größte Teil der Datei ließ sich nicht dekodieren: Sie ist beschädigt oder geschützt.</translation>
  </message>
  <message>
    <source>The encoder does not accept the settings of the preset for this file.</source>
    <translation>Der Encoder nimmt die Einstellungen der Voreinstellung für diese Datei nicht an.</translation>
  </message>
  <message>
    <source>Choose another destination folder and try again.</source>
    <translation>Wählen Sie einen anderen Zielordner, und versuchen Sie es noch einmal.</translation>
  </message>
  <message>
    <source>Copy or download the file again, or play it to see whether it is damaged.</source>
    <translation>Kopieren oder laden Sie die Datei noch einmal, oder spielen Sie sie ab, um zu sehen, ob sie beschädigt ist.</translation>
  </message>
  <message>
    <source>Change this setting of the preset, or choose another preset.</source>
    <translation>Ändern Sie diese Einstellung, oder wählen Sie eine andere Voreinstellung.</translation>
  </message>
  <message>
    <source>Install a complete and recent ffmpeg, or choose another preset.</source>
    <translation>Installieren Sie ein vollständiges und aktuelles ffmpeg, oder wählen Sie eine andere Voreinstellung.</translation>
  </message>
  <message>
    <source>Choose a preset that encodes the tracks instead of copying them.</source>
    <translation>Wählen Sie eine Voreinstellung, die die Spuren kodiert, statt sie zu kopieren.</translation>
  </message>
  <message>
    <source>Close other programs, or let fewer conversions run at once.</source>
    <translation>Schließen Sie andere Programme, oder lassen Sie weniger Konvertierungen gleichzeitig laufen.</translation>
  </message>
  <message>
    <source>Try again without the subtitles, or choose another preset.</source>
    <translation>Versuchen Sie es ohne Untertitel, oder wählen Sie eine andere Voreinstellung.</translation>
  </message>
  <message>
    <source>Copy the whole folder VIDEO_TS from the disc again.</source>
    <translation>Kopieren Sie den ganzen Ordner VIDEO_TS noch einmal von der DVD.</translation>
  </message>
  <message>
    <source>Update or reinstall the packages of ffmpeg, dvdauthor and genisoimage.</source>
    <translation>Aktualisieren Sie die Pakete von ffmpeg, dvdauthor und genisoimage, oder installieren Sie sie neu.</translation>
  </message>
  <message>
    <source>Open the picture in another program and save it again.</source>
    <translation>Öffnen Sie das Bild in einem anderen Programm, und sichern Sie es neu.</translation>
  </message>
  <message>
    <source>The destination folder %@ is missing or cannot be written to.</source>
    <translation>Der Zielordner %@ fehlt oder ist nicht beschreibbar.</translation>
  </message>
  <message>
    <source>The preset can make nothing of this file.</source>
    <translation>Die Voreinstellung kann mit dieser Datei nichts anfangen.</translation>
  </message>
  <message>
    <source>The conversion failed: %@</source>
    <translation>Die Konvertierung ist fehlgeschlagen: %@</translation>
  </message>
  <message>
    <source>The conversion failed.</source>
    <translation>Die Konvertierung ist fehlgeschlagen.</translation>
  </message>
  <message>
    <source>Install the package and try the conversion again.</source>
    <translation>Installieren Sie das Paket, und konvertieren Sie noch einmal.</translation>
  </message>
  <message>
    <source>The disc could not be put together: %@</source>
    <translation>Die DVD konnte nicht zusammengestellt werden: %@</translation>
  </message>
  <message>
    <source>The image of the disc could not be made: %@</source>
    <translation>Das Abbild der DVD konnte nicht erzeugt werden: %@</translation>
  </message>
  <message>
    <source>A film could not be prepared for the disc: %@</source>
    <translation>Ein Film konnte nicht für die DVD vorbereitet werden: %@</translation>
  </message>
  <message>
    <source>The subtitles %@ were left out: %@</source>
    <translation>Die Untertitel %@ wurden weggelassen: %@</translation>
  </message>
  <message>
    <source>Done, but %@</source>
    <translation>Fertig, aber: %@</translation>
  </message>
  <message>
    <source>Done, with %d warnings</source>
    <translation>Fertig, mit %d Warnungen</translation>
  </message>
  <message>
    <source>Try Again</source>
    <translation>Erneut versuchen</translation>
  </message>
  <message>
    <source>Try Again Without Subtitles</source>
    <translation>Ohne Untertitel erneut versuchen</translation>
  </message>
  <message>
    <source>Try Again in Another Folder...</source>
    <translation>In anderem Ordner erneut versuchen ...</translation>
  </message>
  <message>
    <source>Choose another folder for '%@'.</source>
    <translation>Wählen Sie einen anderen Ordner für „%@“.</translation>
  </message>
  <message>
    <source>Details...</source>
    <translation>Details ...</translation>
  </message>
  <message>
    <source>Details of %@</source>
    <translation>Details zu %@</translation>
  </message>
  <message>
    <source>What went wrong:</source>
    <translation>Was schiefgegangen ist:</translation>
  </message>
  <message>
    <source>What you can do:</source>
    <translation>Was Sie tun können:</translation>
  </message>
  <message>
    <source>Warnings:</source>
    <translation>Warnungen:</translation>
  </message>
  <message>
    <source>Command:</source>
    <translation>Befehl:</translation>
  </message>
  <message>
    <source>Last lines of the log:</source>
    <translation>Letzte Zeilen des Protokolls:</translation>
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
    <source>Save...</source>
    <translation>Sichern ...</translation>
  </message>
  <message>
    <source>The details could not be saved.</source>
    <translation>Die Details konnten nicht gesichert werden.</translation>
  </message>
  <message>
    <source>One conversion failed.</source>
    <translation>Eine Konvertierung ist fehlgeschlagen.</translation>
  </message>
  <message>
    <source>%d conversions failed.</source>
    <translation>%d Konvertierungen sind fehlgeschlagen.</translation>
  </message>
  <message>
    <source>%d files have been converted.</source>
    <translation>%d Dateien wurden konvertiert.</translation>
  </message>
  <message>
    <source>%d files have been converted, %d of them with warnings.</source>
    <translation>%d Dateien wurden konvertiert, %d davon mit Warnungen.</translation>
  </message>
  <message>
    <source>Only the first of %i pages is converted.</source>
    <translation>Nur die erste von %i Seiten wird konvertiert.</translation>
  </message>
  <message>
    <source>The helper program "%@" does not start: %@</source>
    <translation>Das Hilfsprogramm „%@“ startet nicht: %@</translation>
  </message>
  <message>
    <source>Reading it took too long.</source>
    <translation>Das Lesen hat zu lange gedauert.</translation>
  </message>
  <message>
    <source>The helper program that reads it crashed or ran out of memory.</source>
    <translation>Das Hilfsprogramm, das es liest, ist abgestürzt, oder der Speicher reichte nicht.</translation>
  </message>
  <message>
    <source>This conversion has ended.</source>
    <translation>Diese Konvertierung ist beendet.</translation>
  </message>
  <message>
    <source>This conversion is paused. Its files, subtitles and preset can no longer be changed.</source>
    <translation>Diese Konvertierung ist angehalten. Ihre Dateien, Untertitel und Vorgabe lassen sich nicht mehr ändern.</translation>
  </message>
  <message>
    <source>This conversion is running. Its files, subtitles and preset can no longer be changed.</source>
    <translation>Diese Konvertierung läuft. Ihre Dateien, Untertitel und Vorgabe lassen sich nicht mehr ändern.</translation>
  </message>
  <message>
    <source>There is nothing to merge with.</source>
    <translation>Es gibt nichts, womit sich diese Konvertierung zusammenfügen lässt.</translation>
  </message>
  <message>
    <source>Only conversions of one media type can be merged.</source>
    <translation>Nur Konvertierungen derselben Medienart lassen sich zusammenfügen.</translation>
  </message>
  <message>
    <source>Pictures cannot be merged.</source>
    <translation>Bilder lassen sich nicht zusammenfügen.</translation>
  </message>
  <message>
    <source>DVDs cannot be merged.</source>
    <translation>DVDs lassen sich nicht zusammenfügen.</translation>
  </message>
  <message>
    <source>Only waiting conversions can be merged.</source>
    <translation>Nur wartende Konvertierungen lassen sich zusammenfügen.</translation>
  </message>
  <message>
    <source>The preset "%@" cannot merge several files into one.</source>
    <translation>Die Vorgabe „%@“ kann nicht mehrere Dateien zu einer zusammenfügen.</translation>
  </message>
  <message>
    <source>The selected conversions are of different media types.</source>
    <translation>Die ausgewählten Konvertierungen sind von verschiedenen Medienarten.</translation>
  </message>
  <message>
    <source>Merge</source>
    <translation>Zusammenfügen</translation>
  </message>
  <message>
    <source>Split</source>
    <translation>Aufteilen</translation>
  </message>
  <message>
    <source>Clear</source>
    <translation>Leeren</translation>
  </message>
  <message>
    <source>Move</source>
    <translation>Verschieben</translation>
  </message>
  <message>
    <source>Rename</source>
    <translation>Umbenennen</translation>
  </message>
  <message>
    <source>Change of Preset</source>
    <translation>Wahl der Vorgabe</translation>
  </message>
  <message>
    <source>Change of Subtitles</source>
    <translation>Wahl der Untertitel</translation>
  </message>
  <message>
    <source>%@ conversions merged into one</source>
    <translation>%@ Konvertierungen zu einer zusammengefügt</translation>
  </message>
  <message>
    <source>%@ conversions merged</source>
    <translation>%@ Konvertierungen zusammengefügt</translation>
  </message>
  <message>
    <source>%@ conversions made into one disc</source>
    <translation>%@ Konvertierungen zu einer Disc zusammengefügt</translation>
  </message>
  <message>
    <source>1 file removed from its conversion</source>
    <translation>1 Datei aus ihrer Konvertierung entfernt</translation>
  </message>
  <message>
    <source>1 conversion removed</source>
    <translation>1 Konvertierung entfernt</translation>
  </message>
  <message>
    <source>%@ conversions removed</source>
    <translation>%@ Konvertierungen entfernt</translation>
  </message>
  <message>
    <source>History cleared</source>
    <translation>Verlauf gelöscht</translation>
  </message>
  <message>
    <source>This can no longer be undone: the conversion has started or was removed.</source>
    <translation>Das lässt sich nicht mehr rückgängig machen: Die Konvertierung hat begonnen oder wurde entfernt.</translation>
  </message>
  <message>
    <source>&amp;Edit</source>
    <translation>&amp;Bearbeiten</translation>
  </message>
  <message>
    <source>&amp;Undo</source>
    <translation>&amp;Rückgängig</translation>
  </message>
  <message>
    <source>&amp;Undo %@</source>
    <translation>&amp;Rückgängig: %@</translation>
  </message>
  <message>
    <source>Undo</source>
    <translation>Rückgängig</translation>
  </message>
  <message>
    <source>Select &amp;All</source>
    <translation>&amp;Alle auswählen</translation>
  </message>
  <message>
    <source>Split Again</source>
    <translation>Wieder aufteilen</translation>
  </message>
  <message>
    <source>Stop and Remove</source>
    <translation>Anhalten und entfernen</translation>
  </message>
  <message>
    <source>Keep Converting</source>
    <translation>Weiter konvertieren</translation>
  </message>
  <message>
    <source>Stop Conversion</source>
    <translation>Konvertierung abbrechen</translation>
  </message>
  <message>
    <source>%@ conversions are still in progress. Do you wish to stop them?</source>
    <translation>%@ Konvertierungen laufen noch. Möchten Sie sie abbrechen?</translation>
  </message>
  <message>
    <source>Do you want to merge %@ files into one?</source>
    <translation>Möchten Sie %@ Dateien zu einer zusammenfügen?</translation>
  </message>
  <message>
    <source>Do you want to put %@ files on one disc?</source>
    <translation>Möchten Sie %@ Dateien auf eine Disc bringen?</translation>
  </message>
  <message>
    <source>The files will be converted one after the other into one output.</source>
    <translation>Die Dateien werden nacheinander in eine einzige Ausgabe konvertiert.</translation>
  </message>
  <message>
    <source>The frame size of "%@" is unknown, so it cannot be merged with other videos.</source>
    <translation>Die Bildgröße von „%@“ ist unbekannt, daher lässt sich die Datei nicht mit anderen Videos zusammenfügen.</translation>
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
  <message>
    <source>The subtitles %@ were left out, since several files were joined.</source>
    <translation>Die Untertitel %@ wurden weggelassen, da mehrere Dateien verbunden wurden.</translation>
  </message>
  <message>
    <source>The file describes its tracks but contains no media data.</source>
    <translation>Die Datei beschreibt ihre Spuren, enthält aber keine Mediendaten.</translation>
  </message>
  <message>
    <source>The pictures of "%@" are lost, because files with its extension count as sound.</source>
    <translation>Die Bilder von „%@“ gehen verloren, denn Dateien mit dieser Endung gelten als Ton.</translation>
  </message>
  <message>
    <source>The video track was encoded instead of copied, because %@ files cannot hold its rotation.</source>
    <translation>Die Videospur wurde neu kodiert statt kopiert, denn %@-Dateien können ihre Drehung nicht enthalten.</translation>
  </message>
  <message>
    <source>The rotation of the video is lost, because %@ files cannot hold it.</source>
    <translation>Die Drehung des Videos geht verloren, denn %@-Dateien können sie nicht enthalten.</translation>
  </message>
  <message>
    <source>The subtitles cannot be read in the picture, because no font for these letters is installed: %@.</source>
    <translation>Die Untertitel sind im Bild nicht lesbar, denn für diese Schrift ist keine Schriftart installiert: %@.</translation>
  </message>
  <message>
    <source>Devanagari</source>
    <translation>Devanagari</translation>
  </message>
  <message>
    <source>Chinese characters</source>
    <translation>Chinesische Zeichen</translation>
  </message>
  <message>
    <source>%@ KB</source>
    <translation>%@ KB</translation>
  </message>
  <message>
    <source>%@ MB</source>
    <translation>%@ MB</translation>
  </message>
  <message>
    <source>%@ GB</source>
    <translation>%@ GB</translation>
  </message>
  <message>
    <source>%@ TB</source>
    <translation>%@ TB</translation>
  </message>
  <message>
    <source>%@ PB</source>
    <translation>%@ PB</translation>
  </message>
  <message>
    <source>AVI</source>
    <translation>AVI</translation>
  </message>
  <message>
    <source>FLV</source>
    <translation>FLV</translation>
  </message>
  <message>
    <source>M4V</source>
    <translation>M4V</translation>
  </message>
  <message>
    <source>MKV</source>
    <translation>MKV</translation>
  </message>
  <message>
    <source>MOV</source>
    <translation>MOV</translation>
  </message>
  <message>
    <source>MP4</source>
    <translation>MP4</translation>
  </message>
  <message>
    <source>Video: MPEG 1
Audio: MP2</source>
    <translation>Video: MPEG 1
Audio: MP2</translation>
  </message>
  <message>
    <source>Video: MPEG 2 (DVD compatible)
Audio: AC3</source>
    <translation>Video: MPEG 2 (DVD-kompatibel)
Audio: AC3</translation>
  </message>
  <message>
    <source>Video: MPEG4
Audio: AAC</source>
    <translation>Video: MPEG4
Audio: AAC</translation>
  </message>
  <message>
    <source>Video: MPEG4 (DivX)
Audio: MP3</source>
    <translation>Video: MPEG4 (DivX)
Audio: MP3</translation>
  </message>
  <message>
    <source>Video: MPEG4 (Xvid)
Audio: MP3</source>
    <translation>Video: MPEG4 (Xvid)
Audio: MP3</translation>
  </message>
  <message>
    <source>Video: FLV
Audio: MP3</source>
    <translation>Video: FLV
Audio: MP3</translation>
  </message>
  <message>
    <source>Video: HEVC
Audio: AAC</source>
    <translation>Video: HEVC
Audio: AAC</translation>
  </message>
  <message>
    <source>Video: ProRes
Audio: AAC</source>
    <translation>Video: ProRes
Audio: AAC</translation>
  </message>
  <message>
    <source>Video: Theora
Audio: Vorbis</source>
    <translation>Video: Theora
Audio: Vorbis</translation>
  </message>
  <message>
    <source>Video: VP8
Audio: Vorbis</source>
    <translation>Video: VP8
Audio: Vorbis</translation>
  </message>
  <message>
    <source>Video: WMV (v2)
Audio: WMA (v2)</source>
    <translation>Video: WMV (v2)
Audio: WMA (v2)</translation>
  </message>
  <message>
    <source>MP4 (iPod, iPhone &amp; AppleTV)</source>
    <translation>MP4 (iPod, iPhone &amp; AppleTV)</translation>
  </message>
  <message>
    <source>Horizontal Flip</source>
    <translation>Horizontal spiegeln</translation>
  </message>
  <message>
    <source>Vertical Flip</source>
    <translation>Vertikal spiegeln</translation>
  </message>
  <message>
    <source>Rotate 90º</source>
    <translation>Um 90º drehen</translation>
  </message>
  <message>
    <source>Rotate 90º CCW</source>
    <translation>Um 90º gegen den Uhrzeigersinn drehen</translation>
  </message>
  <message>
    <source>Couldn't create task, aborting.</source>
    <translation>Der Vorgang konnte nicht angelegt werden.</translation>
  </message>
  <message>
    <source>No such file or directory</source>
    <translation>Datei oder Verzeichnis nicht gefunden</translation>
  </message>
  <message>
    <source>This format allows at most %li pixels on a side, but the picture would have %li x %li.</source>
    <translation>Dieses Format erlaubt höchstens %li Pixel je Seite, aber das Bild hätte %li x %li.</translation>
  </message>
  <message>
    <source>Set a smaller size in the preset, or choose another preset.</source>
    <translation>Stellen Sie in der Voreinstellung eine kleinere Größe ein, oder wählen Sie eine andere.</translation>
  </message>
  <message>
    <source>The picture uses a color model that cannot be read, such as Lab.</source>
    <translation>Das Bild verwendet ein Farbmodell, das nicht gelesen werden kann, zum Beispiel Lab.</translation>
  </message>
  <message>
    <source>Open the picture in another program and save it in RGB colors.</source>
    <translation>Öffnen Sie das Bild in einem anderen Programm, und sichern Sie es in RGB-Farben.</translation>
  </message>
  <message>
    <source>Install Kalvora again.</source>
    <translation>Installieren Sie Kalvora neu.</translation>
  </message>
  <message>
    <source>The picture is damaged, or of a kind that cannot be read.</source>
    <translation>Das Bild ist beschädigt oder von einer Art, die nicht gelesen werden kann.</translation>
  </message>
  <message>
    <source>Remove this file from the conversion, or convert the files one by one.</source>
    <translation>Entfernen Sie diese Datei aus der Konvertierung, oder konvertieren Sie die Dateien einzeln.</translation>
  </message>
  <message>
    <source>The link leads back to itself.</source>
    <translation>Die Verknüpfung führt auf sich selbst zurück.</translation>
  </message>
  <message>
    <source>Remove and Add Again</source>
    <translation>Entfernen und erneut hinzufügen</translation>
  </message>
  <message>
    <source>The result was removed or replaced by another program while it was written.</source>
    <translation>Das Ergebnis wurde von einem anderen Programm entfernt oder ersetzt, während es geschrieben wurde.</translation>
  </message>
  <message>
    <source>The picture cannot be played: the format of the result cannot hold "%@".</source>
    <translation>Das Bild kann nicht abgespielt werden: Das Format des Ergebnisses kann „%@“ nicht enthalten.</translation>
  </message>
</context>
</TS>
