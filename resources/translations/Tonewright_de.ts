<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version: </source>
        <translation>Version: </translation>
    </message>
</context>
<context>
    <name>CCrashReportDlg</name>
    <message>
        <source>Problem Report for Tonewright</source>
        <translation>Problembericht für Tonewright</translation>
    </message>
    <message>
        <source>If you found any problem with Tonewright.</source>
        <translation>Sie haben ein Problem mit Tonewright festgestellt?</translation>
    </message>
    <message>
        <source>Tonewright quitted unexpectedly last time.</source>
        <translation>Tonewright wurde beim letzten Mal unerwartet beendet.</translation>
    </message>
    <message>
        <source>Please click &amp;quot;Send report&amp;quot; to Email the report to us. </source>
        <translation>Klicken Sie auf &amp;quot;Bericht senden&amp;quot;, um uns den Bericht per E-Mail zu schicken. </translation>
    </message>
    <message>
        <source>Your report will help Vandrel improve this software. Your personal information will not be included in this report.</source>
        <translation>Ihr Bericht hilft Vandrel, diese Software zu verbessern. Persönliche Daten sind in diesem Bericht nicht enthalten.</translation>
    </message>
    <message>
        <source>For more product support, visit </source>
        <translation>Weitere Produktunterstützung finden Sie unter </translation>
    </message>
    <message>
        <source>Send Report</source>
        <translation>Bericht senden</translation>
    </message>
    <message>
        <source>[Please describe your problem here.]</source>
        <translation>[Beschreiben Sie hier Ihr Problem.]</translation>
    </message>
</context>
<context>
    <name>CFilterEdit</name>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>Suchen in</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>CHelloWnd</name>
    <message>
        <source>Learn More</source>
        <translation>Mehr erfahren</translation>
    </message>
</context>
<context>
    <name>CLibraryModel</name>
    <message>
        <source>ITunes</source>
        <translation>iTunes</translation>
    </message>
    <message>
        <source>Loading library…</source>
        <translation>Mediathek wird geladen…</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Mediathek</translation>
    </message>
    <message>
        <source>PlayList</source>
        <translation>Wiedergabelisten</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Filme</translation>
    </message>
    <message>
        <source>Ringtones</source>
        <translation>Klingeltöne</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>TV-Sendungen</translation>
    </message>
    <message>
        <source>Podcasts</source>
        <translation>Podcasts</translation>
    </message>
    <message>
        <source>Purchased</source>
        <translation>Gekauft</translation>
    </message>
</context>
<context>
    <name>CMainWnd</name>
    <message>
        <source>Open File</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Media Files (*.*)</source>
        <translation>Mediendateien (*.*)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Preview Selected</source>
        <translation>Auswahl anhören</translation>
    </message>
    <message>
        <source>A ringtone named &quot;%1&quot; is already in your library.&lt;br&gt;Replace it?</source>
        <translation>Ein Klingelton namens „%1“ ist bereits in Ihrer Mediathek vorhanden.&lt;br&gt;Ersetzen?</translation>
    </message>
    <message>
        <source>I am creating a ringtone %1 with Tonewright. </source>
        <translation>Ich erstelle gerade den Klingelton %1 mit Tonewright. </translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Ctrl+M</source>
        <translation>Ctrl+M</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Extras</translation>
    </message>
    <message>
        <source>Frontward</source>
        <translation>Vorwärts</translation>
    </message>
    <message>
        <source>Backward  </source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Show or Hide Music Cover, Video Preview Box</source>
        <translation>Albumcover und Videovorschau ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Dateien öffnen</translation>
    </message>
    <message>
        <source>Timeline Zoom Out</source>
        <translation>Zeitleiste verkleinern</translation>
    </message>
    <message>
        <source>Timeline Zoom In</source>
        <translation>Zeitleiste vergrößern</translation>
    </message>
    <message>
        <source>Set as Start Time</source>
        <translation>Als Startzeit festlegen</translation>
    </message>
    <message>
        <source>Set as End Time</source>
        <translation>Als Endzeit festlegen</translation>
    </message>
    <message>
        <source>Voice Zoom Out</source>
        <translation>Lautstärke verringern</translation>
    </message>
    <message>
        <source>Voice Zoom In</source>
        <translation>Lautstärke erhöhen</translation>
    </message>
    <message>
        <source>Quit Editing</source>
        <translation>Bearbeitung beenden</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Fade  in</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Startzeit</translation>
    </message>
    <message>
        <source>End  Time</source>
        <translation>Endzeit</translation>
    </message>
    <message>
        <source>Start to Create</source>
        <translation>Klingelton erstellen</translation>
    </message>
    <message>
        <source>Tweet Your Ringtone</source>
        <translation>Klingelton twittern</translation>
    </message>
    <message>
        <source>Find us on Facebook</source>
        <translation>Besuchen Sie uns auf Facebook</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Bring All to Front</source>
        <translation>Alle nach vorne bringen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über Tonewright</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Support</translation>
    </message>
    <message>
        <source>Help Topic</source>
        <translation>Hilfethemen</translation>
    </message>
    <message>
        <source>Crash Report</source>
        <translation>Absturzbericht</translation>
    </message>
    <message>
        <source>Find us on &amp;Facebook</source>
        <translation>Besuchen Sie uns auf &amp;Facebook</translation>
    </message>
    <message>
        <source>Find us on &amp;Twitter</source>
        <translation>Besuchen Sie uns auf &amp;Twitter</translation>
    </message>
    <message>
        <source>Vandrel &amp;Clipwell</source>
        <translation>Vandrel &amp;Clipwell</translation>
    </message>
    <message>
        <source>Vandrel &amp;Discwell</source>
        <translation>Vandrel &amp;Discwell</translation>
    </message>
    <message>
        <source>Check &amp;Upgrade</source>
        <translation>Nach &amp;Updates suchen</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Network connection failure,&lt;br&gt;please check the validity of the proxy.</source>
        <translation>Die Netzwerkverbindung ist fehlgeschlagen.&lt;br&gt;Bitte überprüfen Sie die Proxy-Einstellungen.</translation>
    </message>
    <message>
        <source>The url is invalid</source>
        <translation>Die URL ist ungültig</translation>
    </message>
    <message>
        <source>Sorry, the product information can&apos;t be found.</source>
        <translation>Die Produktinformationen wurden leider nicht gefunden.</translation>
    </message>
    <message>
        <source>The selection is %1 seconds long. Phones refuse this kind of ringtone when it is longer than %2 seconds.&lt;br&gt;Create it anyway?</source>
        <translation>Die Auswahl ist %1 Sekunden lang. Telefone lehnen diese Art von Klingelton ab, wenn er länger als %2 Sekunden ist.&lt;br&gt;Trotzdem erstellen?</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Wird gemessen…</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>Stille</translation>
    </message>
    <message>
        <source>%1 LUFS</source>
        <translation>%1 LUFS</translation>
    </message>
    <message>
        <source>Loudness of the selection as it will be written; true peak %1 dBTP</source>
        <translation>Lautheit der Auswahl, wie sie geschrieben wird; True Peak %1 dBTP</translation>
    </message>
    <message>
        <source>&amp;Normalize</source>
        <translation>&amp;Normalisieren</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Standard (−14 LUFS)</source>
        <translation>Standard (−14 LUFS)</translation>
    </message>
    <message>
        <source>Loud (−11 LUFS)</source>
        <translation>Laut (−11 LUFS)</translation>
    </message>
    <message>
        <source>Sets the gain so that the ringtone plays at a chosen loudness, without clipping</source>
        <translation>Stellt die Verstärkung so ein, dass der Klingelton in der gewählten Lautheit spielt, ohne Übersteuerung</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Suggest the best part</source>
        <translation>Den besten Teil vorschlagen</translation>
    </message>
    <message>
        <source>Suggest the &amp;Best Part</source>
        <translation>Den &amp;besten Teil vorschlagen</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>Lautstärke: %1 %</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Set Start at the Play Position</source>
        <translation>Anfang an der Abspielposition</translation>
    </message>
    <message>
        <source>Set End at the Play Position</source>
        <translation>Ende an der Abspielposition</translation>
    </message>
    <message>
        <source>Move the Start Earlier</source>
        <translation>Anfang früher</translation>
    </message>
    <message>
        <source>Move the Start Later</source>
        <translation>Anfang später</translation>
    </message>
    <message>
        <source>Move the End Earlier</source>
        <translation>Ende früher</translation>
    </message>
    <message>
        <source>Move the End Later</source>
        <translation>Ende später</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>Abspielen oder Pause</translation>
    </message>
    <message>
        <source>Preview the Selection</source>
        <translation>Auswahl anhören</translation>
    </message>
    <message>
        <source>Loop the Preview</source>
        <translation>Vorschau wiederholen</translation>
    </message>
    <message>
        <source>Back One Second</source>
        <translation>Eine Sekunde zurück</translation>
    </message>
    <message>
        <source>Forward One Second</source>
        <translation>Eine Sekunde vor</translation>
    </message>
    <message>
        <source>Go to the Start of the Selection</source>
        <translation>Zum Anfang der Auswahl</translation>
    </message>
    <message>
        <source>Go to the End of the Selection</source>
        <translation>Zum Ende der Auswahl</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Search the library</source>
        <translation>Mediathek durchsuchen</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Mediathek</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vor</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Leiser</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Lauter</translation>
    </message>
    <message>
        <source>Fade-in length in seconds</source>
        <translation>Länge des Einblendens in Sekunden</translation>
    </message>
    <message>
        <source>Fade-out length in seconds</source>
        <translation>Länge des Ausblendens in Sekunden</translation>
    </message>
    <message>
        <source>Kind of ringtone</source>
        <translation>Art des Klingeltons</translation>
    </message>
    <message>
        <source>Scroll the waveform</source>
        <translation>Wellenform blättern</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Play or Pause the Preview</source>
        <translation>Vorschau abspielen oder anhalten</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>Endzeit</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normalisieren</translation>
    </message>
    <message>
        <source>Changes the volume of the ringtone; Normalize replaces it</source>
        <translation>Ändert die Lautstärke des Klingeltons; Normalisieren ersetzt sie</translation>
    </message>
    <message>
        <source>Writes the selection as a ringtone</source>
        <translation>Schreibt die Auswahl als Klingelton</translation>
    </message>
    <message>
        <source>A ringtone is being written. Close Tonewright when it is done?</source>
        <translation>Ein Klingelton wird geschrieben. Tonewright schließen, wenn er fertig ist?</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Windows</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>E&amp;xtras</source>
        <translation>E&amp;xtras</translation>
    </message>
</context>
<context>
    <name>CNameDlgClass</name>
    <message>
        <source>Save as</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>CNewestDlgClass</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>COptionDlgClass</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Proxy</source>
        <translation>Proxy</translation>
    </message>
</context>
<context>
    <name>CPopDlg</name>
    <message>
        <source> </source>
        <translation> </translation>
    </message>
</context>
<context>
    <name>CProxyOptionWidget</name>
    <message>
        <source>Http</source>
        <translation>HTTP</translation>
    </message>
    <message>
        <source>Socks5</source>
        <translation>SOCKS5</translation>
    </message>
    <message>
        <source>HttpCaching</source>
        <translation>HTTP-Caching</translation>
    </message>
    <message>
        <source>FtpCaching</source>
        <translation>FTP-Caching</translation>
    </message>
</context>
<context>
    <name>CProxyWidgetClass</name>
    <message>
        <source>use proxy</source>
        <translation>Proxy verwenden</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Host:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>Proxy Type</source>
        <translation>Proxy-Typ</translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>PassWord</source>
        <translation>Passwort</translation>
    </message>
</context>
<context>
    <name>CRingtoneExport</name>
    <message>
        <source>iPhone ringtone</source>
        <translation>iPhone-Klingelton</translation>
    </message>
    <message>
        <source>iPhone alert tone</source>
        <translation>iPhone-Hinweiston</translation>
    </message>
    <message>
        <source>Android (Ogg)</source>
        <translation>Android (Ogg)</translation>
    </message>
    <message>
        <source>Android (MP3)</source>
        <translation>Android (MP3)</translation>
    </message>
    <message>
        <source>AAC audio (.m4a)</source>
        <translation>AAC-Audio (.m4a)</translation>
    </message>
</context>
<context>
    <name>CRingtoneNotice</name>
    <message>
        <source>%1 added to Ringtones</source>
        <translation>%1 zu Klingeltönen hinzugefügt</translation>
    </message>
    <message>
        <source>%1 was made, but the library did not take it</source>
        <translation>%1 wurde erstellt, aber die Mediathek hat ihn nicht übernommen</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
</context>
<context>
    <name>CTryAgainDlg</name>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Sorry, the file &amp;quot;%1&amp;quot; could not be read.</source>
        <translation>Die Datei &amp;quot;%1&amp;quot; konnte leider nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Check that it is still there, then try again.</source>
        <translation>Prüfen Sie, ob sie noch vorhanden ist, und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a media file.</source>
        <translation>&amp;quot;%1&amp;quot; ist keine Mediendatei.</translation>
    </message>
    <message>
        <source>Choose a song or a video.</source>
        <translation>Wählen Sie ein Lied oder ein Video.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; has no sound in it.</source>
        <translation>&amp;quot;%1&amp;quot; enthält keinen Ton.</translation>
    </message>
    <message>
        <source>Choose a song or a video with sound.</source>
        <translation>Wählen Sie ein Lied oder ein Video mit Ton.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too short.</source>
        <translation>&amp;quot;%1&amp;quot; ist zu kurz.</translation>
    </message>
    <message>
        <source>The shortest ringtone is %1 seconds.</source>
        <translation>Ein Klingelton ist mindestens %1 Sekunden lang.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too long.</source>
        <translation>&amp;quot;%1&amp;quot; ist zu lang.</translation>
    </message>
    <message>
        <source>The editor opens up to %1 hours %2 minutes of sound.</source>
        <translation>Der Editor öffnet bis zu %1 Stunden %2 Minuten Ton.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a file.</source>
        <translation>&amp;quot;%1&amp;quot; ist keine Datei.</translation>
    </message>
    <message>
        <source>Pipes and devices cannot be opened. Choose a song or a video.</source>
        <translation>Pipes und Geräte können nicht geöffnet werden. Wählen Sie ein Lied oder ein Video.</translation>
    </message>
</context>
<context>
    <name>CUpdateOptionWidgetClass</name>
    <message>
        <source>Enable automatic update check</source>
        <translation>Automatisch nach Updates suchen</translation>
    </message>
    <message>
        <source>Number of days between update checks</source>
        <translation>Tage zwischen den Update-Prüfungen</translation>
    </message>
    <message>
        <source>Update every day</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Update every week</source>
        <translation>Wöchentlich</translation>
    </message>
    <message>
        <source>Update every month</source>
        <translation>Monatlich</translation>
    </message>
</context>
<context>
    <name>CUpgradeClass</name>
    <message>
        <source>Download Now</source>
        <translation>Jetzt herunterladen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>CUpgradeDlg</name>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;A new version is avaliable now! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;Eine neue Version ist verfügbar! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>What&apos;s new for this version:</source>
        <translation>Neu in dieser Version:</translation>
    </message>
</context>
<context>
    <name>CWaveWnd</name>
    <message>
        <source>Space plays, Shift+Space previews the selection, I and O set its start and end, Alt and Ctrl with the arrow keys move its edges</source>
        <translation>Leertaste spielt ab, Umschalt+Leertaste spielt die Auswahl, I und O setzen Anfang und Ende, Alt und Strg mit den Pfeiltasten verschieben die Ränder</translation>
    </message>
    <message>
        <source>Waveform, no song open</source>
        <translation>Wellenform, kein Titel geöffnet</translation>
    </message>
    <message>
        <source>Selection %1 to %2 of %3</source>
        <translation>Auswahl %1 bis %2 von %3</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Copyright © 2010-2026 Vandrel Software. All rights reserved.</source>
        <translation>© 2010-2026 Vandrel Software. Alle Rechte vorbehalten.</translation>
    </message>
    <message>
        <source>&lt;p&gt;Support: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Support: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Home Page: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Website: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Wählen Sie links in der Liste eine Datei aus&lt;br /&gt;oder ziehen Sie ein Lied oder einen Film in das Fenster.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Die Datei &amp;quot;%1&amp;quot; konnte leider nicht korrekt konvertiert werden.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Es ist ein Fehler aufgetreten.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Bitte versuchen Sie es erneut oder importieren Sie eine andere Datei.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;You are using the newest version now!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;Sie verwenden die neueste Version!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
</TS>
