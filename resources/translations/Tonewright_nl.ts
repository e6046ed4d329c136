<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version: </source>
        <translation>Versie: </translation>
    </message>
</context>
<context>
    <name>CCrashReportDlg</name>
    <message>
        <source>Problem Report for Tonewright</source>
        <translation>Probleemrapport voor Tonewright</translation>
    </message>
    <message>
        <source>If you found any problem with Tonewright.</source>
        <translation>Heb je een probleem met Tonewright ondervonden?</translation>
    </message>
    <message>
        <source>Tonewright quitted unexpectedly last time.</source>
        <translation>Tonewright is de vorige keer onverwacht gestopt.</translation>
    </message>
    <message>
        <source>Please click &amp;quot;Send report&amp;quot; to Email the report to us. </source>
        <translation>Klik op &amp;quot;Rapport versturen&amp;quot; om het rapport naar ons te e-mailen. </translation>
    </message>
    <message>
        <source>Your report will help Vandrel improve this software. Your personal information will not be included in this report.</source>
        <translation>Met je rapport kan Vandrel deze software verbeteren. Je persoonlijke gegevens worden niet in dit rapport opgenomen.</translation>
    </message>
    <message>
        <source>For more product support, visit </source>
        <translation>Ga voor meer productondersteuning naar </translation>
    </message>
    <message>
        <source>Send Report</source>
        <translation>Rapport versturen</translation>
    </message>
    <message>
        <source>[Please describe your problem here.]</source>
        <translation>[Beschrijf hier je probleem.]</translation>
    </message>
</context>
<context>
    <name>CFilterEdit</name>
    <message>
        <source>All</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artiest</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Wissen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filteren</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>Zoeken in</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Zoeken</translation>
    </message>
</context>
<context>
    <name>CHelloWnd</name>
    <message>
        <source>Learn More</source>
        <translation>Meer informatie</translation>
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
        <translation>Bibliotheek laden…</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliotheek</translation>
    </message>
    <message>
        <source>PlayList</source>
        <translation>Afspeellijsten</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Muziek</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Films</translation>
    </message>
    <message>
        <source>Ringtones</source>
        <translation>Beltonen</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Tv-programma&apos;s</translation>
    </message>
    <message>
        <source>Podcasts</source>
        <translation>Podcasts</translation>
    </message>
    <message>
        <source>Purchased</source>
        <translation>Gekocht</translation>
    </message>
</context>
<context>
    <name>CMainWnd</name>
    <message>
        <source>Open File</source>
        <translation>Bestand openen</translation>
    </message>
    <message>
        <source>Media Files (*.*)</source>
        <translation>Mediabestanden (*.*)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pauze</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Afspelen</translation>
    </message>
    <message>
        <source>Preview Selected</source>
        <translation>Selectie beluisteren</translation>
    </message>
    <message>
        <source>A ringtone named &quot;%1&quot; is already in your library.&lt;br&gt;Replace it?</source>
        <translation>Er staat al een beltoon met de naam ‘%1’ in je bibliotheek.&lt;br&gt;Vervangen?</translation>
    </message>
    <message>
        <source>I am creating a ringtone %1 with Tonewright. </source>
        <translation>Ik maak de beltoon %1 met Tonewright. </translation>
    </message>
    <message>
        <source>File</source>
        <translation>Bestand</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Venster</translation>
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
        <translation>Taal</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Extra</translation>
    </message>
    <message>
        <source>Frontward</source>
        <translation>Vooruit</translation>
    </message>
    <message>
        <source>Backward  </source>
        <translation>Terug</translation>
    </message>
    <message>
        <source>Show or Hide Music Cover, Video Preview Box</source>
        <translation>Albumhoes en videovoorbeeld tonen of verbergen</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Bestanden openen</translation>
    </message>
    <message>
        <source>Timeline Zoom Out</source>
        <translation>Tijdlijn uitzoomen</translation>
    </message>
    <message>
        <source>Timeline Zoom In</source>
        <translation>Tijdlijn inzoomen</translation>
    </message>
    <message>
        <source>Set as Start Time</source>
        <translation>Instellen als begintijd</translation>
    </message>
    <message>
        <source>Set as End Time</source>
        <translation>Instellen als eindtijd</translation>
    </message>
    <message>
        <source>Voice Zoom Out</source>
        <translation>Volume omlaag</translation>
    </message>
    <message>
        <source>Voice Zoom In</source>
        <translation>Volume omhoog</translation>
    </message>
    <message>
        <source>Quit Editing</source>
        <translation>Bewerken beëindigen</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>Uitfaden</translation>
    </message>
    <message>
        <source>Fade  in</source>
        <translation>Infaden</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Begintijd</translation>
    </message>
    <message>
        <source>End  Time</source>
        <translation>Eindtijd</translation>
    </message>
    <message>
        <source>Start to Create</source>
        <translation>Beltoon maken</translation>
    </message>
    <message>
        <source>Tweet Your Ringtone</source>
        <translation>Tweet je beltoon</translation>
    </message>
    <message>
        <source>Find us on Facebook</source>
        <translation>Volg ons op Facebook</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Opslaan als</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Sluiten</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Openen</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimaliseren</translation>
    </message>
    <message>
        <source>Bring All to Front</source>
        <translation>Alles naar voren halen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Over Tonewright</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Ondersteuning</translation>
    </message>
    <message>
        <source>Help Topic</source>
        <translation>Helponderwerpen</translation>
    </message>
    <message>
        <source>Crash Report</source>
        <translation>Crashrapport</translation>
    </message>
    <message>
        <source>Find us on &amp;Facebook</source>
        <translation>Volg ons op &amp;Facebook</translation>
    </message>
    <message>
        <source>Find us on &amp;Twitter</source>
        <translation>Volg ons op &amp;Twitter</translation>
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
        <translation>Zoeken naar &amp;updates</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Opties</translation>
    </message>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Network connection failure,&lt;br&gt;please check the validity of the proxy.</source>
        <translation>Netwerkverbinding mislukt.&lt;br&gt;Controleer of de proxy-instellingen geldig zijn.</translation>
    </message>
    <message>
        <source>The url is invalid</source>
        <translation>De URL is ongeldig</translation>
    </message>
    <message>
        <source>Sorry, the product information can&apos;t be found.</source>
        <translation>Helaas, de productinformatie kan niet worden gevonden.</translation>
    </message>
    <message>
        <source>The selection is %1 seconds long. Phones refuse this kind of ringtone when it is longer than %2 seconds.&lt;br&gt;Create it anyway?</source>
        <translation>De selectie duurt %1 seconden. Telefoons weigeren dit soort beltoon als die langer is dan %2 seconden.&lt;br&gt;Toch maken?</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Meten…</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>%1 LUFS</source>
        <translation>%1 LUFS</translation>
    </message>
    <message>
        <source>Loudness of the selection as it will be written; true peak %1 dBTP</source>
        <translation>Luidheid van de selectie zoals die wordt geschreven; true peak %1 dBTP</translation>
    </message>
    <message>
        <source>&amp;Normalize</source>
        <translation>&amp;Normaliseren</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Uit</translation>
    </message>
    <message>
        <source>Standard (−14 LUFS)</source>
        <translation>Standaard (−14 LUFS)</translation>
    </message>
    <message>
        <source>Loud (−11 LUFS)</source>
        <translation>Luid (−11 LUFS)</translation>
    </message>
    <message>
        <source>Sets the gain so that the ringtone plays at a chosen loudness, without clipping</source>
        <translation>Stelt de versterking zo in dat de beltoon op de gekozen luidheid speelt, zonder oversturing</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Suggest the best part</source>
        <translation>Het beste deel voorstellen</translation>
    </message>
    <message>
        <source>Suggest the &amp;Best Part</source>
        <translation>Het &amp;beste deel voorstellen</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>Volume: %1%</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>Be&amp;werken</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Ongedaan maken</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Opnieuw</translation>
    </message>
    <message>
        <source>Set Start at the Play Position</source>
        <translation>Begin op de afspeelpositie</translation>
    </message>
    <message>
        <source>Set End at the Play Position</source>
        <translation>Einde op de afspeelpositie</translation>
    </message>
    <message>
        <source>Move the Start Earlier</source>
        <translation>Begin eerder</translation>
    </message>
    <message>
        <source>Move the Start Later</source>
        <translation>Begin later</translation>
    </message>
    <message>
        <source>Move the End Earlier</source>
        <translation>Einde eerder</translation>
    </message>
    <message>
        <source>Move the End Later</source>
        <translation>Einde later</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Afspelen</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>Afspelen of pauzeren</translation>
    </message>
    <message>
        <source>Preview the Selection</source>
        <translation>Selectie beluisteren</translation>
    </message>
    <message>
        <source>Loop the Preview</source>
        <translation>Voorbeeld herhalen</translation>
    </message>
    <message>
        <source>Back One Second</source>
        <translation>Eén seconde terug</translation>
    </message>
    <message>
        <source>Forward One Second</source>
        <translation>Eén seconde vooruit</translation>
    </message>
    <message>
        <source>Go to the Start of the Selection</source>
        <translation>Naar het begin van de selectie</translation>
    </message>
    <message>
        <source>Go to the End of the Selection</source>
        <translation>Naar het einde van de selectie</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Inzoomen</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Uitzoomen</translation>
    </message>
    <message>
        <source>Search the library</source>
        <translation>Bibliotheek doorzoeken</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliotheek</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Nummers</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Terug</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vooruit</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Zachter</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Harder</translation>
    </message>
    <message>
        <source>Fade-in length in seconds</source>
        <translation>Duur van het infaden in seconden</translation>
    </message>
    <message>
        <source>Fade-out length in seconds</source>
        <translation>Duur van het uitfaden in seconden</translation>
    </message>
    <message>
        <source>Kind of ringtone</source>
        <translation>Soort beltoon</translation>
    </message>
    <message>
        <source>Scroll the waveform</source>
        <translation>Golfvorm schuiven</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Play or Pause the Preview</source>
        <translation>Voorbeeld afspelen of pauzeren</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Infaden</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>Eindtijd</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normaliseren</translation>
    </message>
    <message>
        <source>Changes the volume of the ringtone; Normalize replaces it</source>
        <translation>Verandert het volume van de beltoon; Normaliseren vervangt het</translation>
    </message>
    <message>
        <source>Writes the selection as a ringtone</source>
        <translation>Schrijft de selectie als beltoon</translation>
    </message>
    <message>
        <source>A ringtone is being written. Close Tonewright when it is done?</source>
        <translation>Er wordt een beltoon geschreven. Tonewright sluiten als die klaar is?</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Bestand</translation>
    </message>
    <message>
        <source>&amp;Windows</source>
        <translation>&amp;Vensters</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Taal</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>E&amp;xtras</source>
        <translation>E&amp;xtra&apos;s</translation>
    </message>
</context>
<context>
    <name>CNameDlgClass</name>
    <message>
        <source>Save as</source>
        <translation>Naam</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
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
        <translation>Annuleren</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Updates</translation>
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
        <translation>HTTP-caching</translation>
    </message>
    <message>
        <source>FtpCaching</source>
        <translation>FTP-caching</translation>
    </message>
</context>
<context>
    <name>CProxyWidgetClass</name>
    <message>
        <source>use proxy</source>
        <translation>Proxy gebruiken</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Host:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Poort:</translation>
    </message>
    <message>
        <source>Proxy Type</source>
        <translation>Proxytype</translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>Gebruikersnaam</translation>
    </message>
    <message>
        <source>PassWord</source>
        <translation>Wachtwoord</translation>
    </message>
</context>
<context>
    <name>CRingtoneExport</name>
    <message>
        <source>iPhone ringtone</source>
        <translation>iPhone-beltoon</translation>
    </message>
    <message>
        <source>iPhone alert tone</source>
        <translation>iPhone-meldingstoon</translation>
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
        <translation>AAC-audio (.m4a)</translation>
    </message>
</context>
<context>
    <name>CRingtoneNotice</name>
    <message>
        <source>%1 added to Ringtones</source>
        <translation>%1 toegevoegd aan Beltonen</translation>
    </message>
    <message>
        <source>%1 was made, but the library did not take it</source>
        <translation>%1 is gemaakt, maar de bibliotheek nam het niet op</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Tonen in map</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Afspelen</translation>
    </message>
</context>
<context>
    <name>CTryAgainDlg</name>
    <message>
        <source>Try again</source>
        <translation>Opnieuw proberen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
    <message>
        <source>Sorry, the file &amp;quot;%1&amp;quot; could not be read.</source>
        <translation>Het bestand &amp;quot;%1&amp;quot; kon helaas niet worden gelezen.</translation>
    </message>
    <message>
        <source>Check that it is still there, then try again.</source>
        <translation>Controleer of het er nog is en probeer het opnieuw.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a media file.</source>
        <translation>&amp;quot;%1&amp;quot; is geen mediabestand.</translation>
    </message>
    <message>
        <source>Choose a song or a video.</source>
        <translation>Kies een nummer of een video.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; has no sound in it.</source>
        <translation>&amp;quot;%1&amp;quot; bevat geen geluid.</translation>
    </message>
    <message>
        <source>Choose a song or a video with sound.</source>
        <translation>Kies een nummer of een video met geluid.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too short.</source>
        <translation>&amp;quot;%1&amp;quot; is te kort.</translation>
    </message>
    <message>
        <source>The shortest ringtone is %1 seconds.</source>
        <translation>De kortste beltoon duurt %1 seconden.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too long.</source>
        <translation>&amp;quot;%1&amp;quot; is te lang.</translation>
    </message>
    <message>
        <source>The editor opens up to %1 hours %2 minutes of sound.</source>
        <translation>De editor opent tot %1 uur %2 minuten geluid.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a file.</source>
        <translation>&amp;quot;%1&amp;quot; is geen bestand.</translation>
    </message>
    <message>
        <source>Pipes and devices cannot be opened. Choose a song or a video.</source>
        <translation>Pipes en apparaten kunnen niet worden geopend. Kies een nummer of een video.</translation>
    </message>
</context>
<context>
    <name>CUpdateOptionWidgetClass</name>
    <message>
        <source>Enable automatic update check</source>
        <translation>Automatisch controleren op updates</translation>
    </message>
    <message>
        <source>Number of days between update checks</source>
        <translation>Aantal dagen tussen updatecontroles</translation>
    </message>
    <message>
        <source>Update every day</source>
        <translation>Elke dag</translation>
    </message>
    <message>
        <source>Update every week</source>
        <translation>Elke week</translation>
    </message>
    <message>
        <source>Update every month</source>
        <translation>Elke maand</translation>
    </message>
</context>
<context>
    <name>CUpgradeClass</name>
    <message>
        <source>Download Now</source>
        <translation>Nu downloaden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
</context>
<context>
    <name>CUpgradeDlg</name>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;A new version is avaliable now! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;Er is een nieuwe versie beschikbaar! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>What&apos;s new for this version:</source>
        <translation>Nieuw in deze versie:</translation>
    </message>
</context>
<context>
    <name>CWaveWnd</name>
    <message>
        <source>Space plays, Shift+Space previews the selection, I and O set its start and end, Alt and Ctrl with the arrow keys move its edges</source>
        <translation>Spatie speelt af, Shift+Spatie speelt de selectie, I en O zetten begin en einde, Alt en Ctrl met de pijltjestoetsen verschuiven de randen</translation>
    </message>
    <message>
        <source>Waveform, no song open</source>
        <translation>Golfvorm, geen nummer geopend</translation>
    </message>
    <message>
        <source>Selection %1 to %2 of %3</source>
        <translation>Selectie %1 tot %2 van %3</translation>
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
        <translation>© 2010-2026 Vandrel Software. Alle rechten voorbehouden.</translation>
    </message>
    <message>
        <source>&lt;p&gt;Support: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Ondersteuning: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Home Page: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Website: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Selecteer een bestand in de lijst links&lt;br /&gt;of sleep een nummer of video naar het venster.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Helaas is het bestand &amp;quot;%1&amp;quot; niet correct geconverteerd.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Er is iets misgegaan.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Probeer het opnieuw of importeer een ander bestand.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;You are using the newest version now!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;Je gebruikt al de nieuwste versie!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
</TS>
