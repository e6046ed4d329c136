<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version: </source>
        <translation>Versione: </translation>
    </message>
</context>
<context>
    <name>CCrashReportDlg</name>
    <message>
        <source>Problem Report for Tonewright</source>
        <translation>Segnalazione problemi di Tonewright</translation>
    </message>
    <message>
        <source>If you found any problem with Tonewright.</source>
        <translation>Hai riscontrato un problema con Tonewright?</translation>
    </message>
    <message>
        <source>Tonewright quitted unexpectedly last time.</source>
        <translation>L&apos;ultima volta Tonewright si è chiuso in modo imprevisto.</translation>
    </message>
    <message>
        <source>Please click &amp;quot;Send report&amp;quot; to Email the report to us. </source>
        <translation>Fai clic su &amp;quot;Invia segnalazione&amp;quot; per inviarci la segnalazione via e-mail. </translation>
    </message>
    <message>
        <source>Your report will help Vandrel improve this software. Your personal information will not be included in this report.</source>
        <translation>La tua segnalazione aiuterà Vandrel a migliorare questo software. I tuoi dati personali non verranno inclusi nella segnalazione.</translation>
    </message>
    <message>
        <source>For more product support, visit </source>
        <translation>Per ulteriore assistenza sul prodotto, visita </translation>
    </message>
    <message>
        <source>Send Report</source>
        <translation>Invia segnalazione</translation>
    </message>
    <message>
        <source>[Please describe your problem here.]</source>
        <translation>[Descrivi qui il problema.]</translation>
    </message>
</context>
<context>
    <name>CFilterEdit</name>
    <message>
        <source>All</source>
        <translation>Tutto</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Cancella</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtra</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>Cerca in</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Cerca</translation>
    </message>
</context>
<context>
    <name>CHelloWnd</name>
    <message>
        <source>Learn More</source>
        <translation>Scopri di più</translation>
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
        <translation>Caricamento della libreria…</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Libreria</translation>
    </message>
    <message>
        <source>PlayList</source>
        <translation>Playlist</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musica</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Ringtones</source>
        <translation>Suonerie</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Programmi TV</translation>
    </message>
    <message>
        <source>Podcasts</source>
        <translation>Podcast</translation>
    </message>
    <message>
        <source>Purchased</source>
        <translation>Acquistati</translation>
    </message>
</context>
<context>
    <name>CMainWnd</name>
    <message>
        <source>Open File</source>
        <translation>Apri file</translation>
    </message>
    <message>
        <source>Media Files (*.*)</source>
        <translation>File multimediali (*.*)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Riproduci</translation>
    </message>
    <message>
        <source>Preview Selected</source>
        <translation>Ascolta la selezione</translation>
    </message>
    <message>
        <source>A ringtone named &quot;%1&quot; is already in your library.&lt;br&gt;Replace it?</source>
        <translation>Nella libreria è già presente una suoneria denominata «%1».&lt;br&gt;Sostituirla?</translation>
    </message>
    <message>
        <source>I am creating a ringtone %1 with Tonewright. </source>
        <translation>Sto creando la suoneria %1 con Tonewright. </translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Finestra</translation>
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
        <translation>Lingua</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aiuto</translation>
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
        <translation>Avanti</translation>
    </message>
    <message>
        <source>Backward  </source>
        <translation>Indietro</translation>
    </message>
    <message>
        <source>Show or Hide Music Cover, Video Preview Box</source>
        <translation>Mostra o nascondi la copertina e l&apos;anteprima video</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Apri file</translation>
    </message>
    <message>
        <source>Timeline Zoom Out</source>
        <translation>Riduci lo zoom della timeline</translation>
    </message>
    <message>
        <source>Timeline Zoom In</source>
        <translation>Aumenta lo zoom della timeline</translation>
    </message>
    <message>
        <source>Set as Start Time</source>
        <translation>Imposta come inizio</translation>
    </message>
    <message>
        <source>Set as End Time</source>
        <translation>Imposta come fine</translation>
    </message>
    <message>
        <source>Voice Zoom Out</source>
        <translation>Abbassa il volume</translation>
    </message>
    <message>
        <source>Voice Zoom In</source>
        <translation>Alza il volume</translation>
    </message>
    <message>
        <source>Quit Editing</source>
        <translation>Esci dalla modifica</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>Dissolvenza in uscita</translation>
    </message>
    <message>
        <source>Fade  in</source>
        <translation>Dissolvenza in entrata</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Inizio</translation>
    </message>
    <message>
        <source>End  Time</source>
        <translation>Fine</translation>
    </message>
    <message>
        <source>Start to Create</source>
        <translation>Crea la suoneria</translation>
    </message>
    <message>
        <source>Tweet Your Ringtone</source>
        <translation>Twitta la tua suoneria</translation>
    </message>
    <message>
        <source>Find us on Facebook</source>
        <translation>Seguici su Facebook</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Salva con nome</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Riduci a icona</translation>
    </message>
    <message>
        <source>Bring All to Front</source>
        <translation>Porta tutto in primo piano</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Informazioni su Tonewright</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Supporto</translation>
    </message>
    <message>
        <source>Help Topic</source>
        <translation>Argomenti della guida</translation>
    </message>
    <message>
        <source>Crash Report</source>
        <translation>Segnalazione arresto anomalo</translation>
    </message>
    <message>
        <source>Find us on &amp;Facebook</source>
        <translation>Seguici su &amp;Facebook</translation>
    </message>
    <message>
        <source>Find us on &amp;Twitter</source>
        <translation>Seguici su &amp;Twitter</translation>
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
        <translation>Verifica &amp;aggiornamenti</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Opzioni</translation>
    </message>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Network connection failure,&lt;br&gt;please check the validity of the proxy.</source>
        <translation>Connessione di rete non riuscita.&lt;br&gt;Verifica che le impostazioni del proxy siano valide.</translation>
    </message>
    <message>
        <source>The url is invalid</source>
        <translation>L&apos;URL non è valido</translation>
    </message>
    <message>
        <source>Sorry, the product information can&apos;t be found.</source>
        <translation>Spiacenti, impossibile trovare le informazioni sul prodotto.</translation>
    </message>
    <message>
        <source>The selection is %1 seconds long. Phones refuse this kind of ringtone when it is longer than %2 seconds.&lt;br&gt;Create it anyway?</source>
        <translation>La selezione dura %1 secondi. I telefoni rifiutano questo tipo di suoneria se supera i %2 secondi.&lt;br&gt;Crearla comunque?</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Misurazione…</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>Silenzio</translation>
    </message>
    <message>
        <source>%1 LUFS</source>
        <translation>%1 LUFS</translation>
    </message>
    <message>
        <source>Loudness of the selection as it will be written; true peak %1 dBTP</source>
        <translation>Loudness della selezione come verrà scritta; picco reale %1 dBTP</translation>
    </message>
    <message>
        <source>&amp;Normalize</source>
        <translation>&amp;Normalizza</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Disattivato</translation>
    </message>
    <message>
        <source>Standard (−14 LUFS)</source>
        <translation>Standard (−14 LUFS)</translation>
    </message>
    <message>
        <source>Loud (−11 LUFS)</source>
        <translation>Alto (−11 LUFS)</translation>
    </message>
    <message>
        <source>Sets the gain so that the ringtone plays at a chosen loudness, without clipping</source>
        <translation>Imposta il guadagno perché la suoneria abbia la loudness scelta, senza distorsione</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Suggest the best part</source>
        <translation>Suggerisci la parte migliore</translation>
    </message>
    <message>
        <source>Suggest the &amp;Best Part</source>
        <translation>Suggerisci la parte &amp;migliore</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>Volume: %1%</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Modifica</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Ripeti</translation>
    </message>
    <message>
        <source>Set Start at the Play Position</source>
        <translation>Inizio alla posizione di riproduzione</translation>
    </message>
    <message>
        <source>Set End at the Play Position</source>
        <translation>Fine alla posizione di riproduzione</translation>
    </message>
    <message>
        <source>Move the Start Earlier</source>
        <translation>Anticipa l&apos;inizio</translation>
    </message>
    <message>
        <source>Move the Start Later</source>
        <translation>Posticipa l&apos;inizio</translation>
    </message>
    <message>
        <source>Move the End Earlier</source>
        <translation>Anticipa la fine</translation>
    </message>
    <message>
        <source>Move the End Later</source>
        <translation>Posticipa la fine</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Riproduci</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>Riproduci o pausa</translation>
    </message>
    <message>
        <source>Preview the Selection</source>
        <translation>Ascolta la selezione</translation>
    </message>
    <message>
        <source>Loop the Preview</source>
        <translation>Ripeti l&apos;anteprima</translation>
    </message>
    <message>
        <source>Back One Second</source>
        <translation>Indietro di un secondo</translation>
    </message>
    <message>
        <source>Forward One Second</source>
        <translation>Avanti di un secondo</translation>
    </message>
    <message>
        <source>Go to the Start of the Selection</source>
        <translation>Vai all&apos;inizio della selezione</translation>
    </message>
    <message>
        <source>Go to the End of the Selection</source>
        <translation>Vai alla fine della selezione</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Ingrandisci</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Riduci</translation>
    </message>
    <message>
        <source>Search the library</source>
        <translation>Cerca nella libreria</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Libreria</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Brani</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Indietro</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Avanti</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Abbassa il volume</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Alza il volume</translation>
    </message>
    <message>
        <source>Fade-in length in seconds</source>
        <translation>Durata della dissolvenza in entrata in secondi</translation>
    </message>
    <message>
        <source>Fade-out length in seconds</source>
        <translation>Durata della dissolvenza in uscita in secondi</translation>
    </message>
    <message>
        <source>Kind of ringtone</source>
        <translation>Tipo di suoneria</translation>
    </message>
    <message>
        <source>Scroll the waveform</source>
        <translation>Scorri la forma d&apos;onda</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Brano</translation>
    </message>
    <message>
        <source>Play or Pause the Preview</source>
        <translation>Riproduci o metti in pausa l&apos;anteprima</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Dissolvenza in entrata</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>Ora di fine</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normalizza</translation>
    </message>
    <message>
        <source>Changes the volume of the ringtone; Normalize replaces it</source>
        <translation>Cambia il volume della suoneria; Normalizza lo sostituisce</translation>
    </message>
    <message>
        <source>Writes the selection as a ringtone</source>
        <translation>Scrive la selezione come suoneria</translation>
    </message>
    <message>
        <source>A ringtone is being written. Close Tonewright when it is done?</source>
        <translation>Si sta scrivendo una suoneria. Chiudere Tonewright quando è finita?</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Windows</source>
        <translation>&amp;Finestre</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Lingua</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aiuto</translation>
    </message>
    <message>
        <source>E&amp;xtras</source>
        <translation>E&amp;xtra</translation>
    </message>
</context>
<context>
    <name>CNameDlgClass</name>
    <message>
        <source>Save as</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
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
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aggiornamenti</translation>
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
        <translation>HTTP con cache</translation>
    </message>
    <message>
        <source>FtpCaching</source>
        <translation>FTP con cache</translation>
    </message>
</context>
<context>
    <name>CProxyWidgetClass</name>
    <message>
        <source>use proxy</source>
        <translation>Usa proxy</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Host:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Porta:</translation>
    </message>
    <message>
        <source>Proxy Type</source>
        <translation>Tipo di proxy</translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>Nome utente</translation>
    </message>
    <message>
        <source>PassWord</source>
        <translation>Password</translation>
    </message>
</context>
<context>
    <name>CRingtoneExport</name>
    <message>
        <source>iPhone ringtone</source>
        <translation>Suoneria iPhone</translation>
    </message>
    <message>
        <source>iPhone alert tone</source>
        <translation>Suono di avviso iPhone</translation>
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
        <translation>Audio AAC (.m4a)</translation>
    </message>
</context>
<context>
    <name>CRingtoneNotice</name>
    <message>
        <source>%1 added to Ringtones</source>
        <translation>%1 aggiunto a Suonerie</translation>
    </message>
    <message>
        <source>%1 was made, but the library did not take it</source>
        <translation>%1 è stato creato, ma la libreria non l&apos;ha accettato</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostra nella cartella</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Riproduci</translation>
    </message>
</context>
<context>
    <name>CTryAgainDlg</name>
    <message>
        <source>Try again</source>
        <translation>Riprova</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Sorry, the file &amp;quot;%1&amp;quot; could not be read.</source>
        <translation>Spiacenti, impossibile leggere il file &amp;quot;%1&amp;quot;.</translation>
    </message>
    <message>
        <source>Check that it is still there, then try again.</source>
        <translation>Verifica che sia ancora presente, poi riprova.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a media file.</source>
        <translation>&amp;quot;%1&amp;quot; non è un file multimediale.</translation>
    </message>
    <message>
        <source>Choose a song or a video.</source>
        <translation>Scegli un brano o un video.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; has no sound in it.</source>
        <translation>&amp;quot;%1&amp;quot; non contiene audio.</translation>
    </message>
    <message>
        <source>Choose a song or a video with sound.</source>
        <translation>Scegli un brano o un video con audio.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too short.</source>
        <translation>&amp;quot;%1&amp;quot; è troppo breve.</translation>
    </message>
    <message>
        <source>The shortest ringtone is %1 seconds.</source>
        <translation>La suoneria più breve dura %1 secondi.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too long.</source>
        <translation>&amp;quot;%1&amp;quot; è troppo lungo.</translation>
    </message>
    <message>
        <source>The editor opens up to %1 hours %2 minutes of sound.</source>
        <translation>L’editor apre fino a %1 ore %2 minuti di audio.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a file.</source>
        <translation>&amp;quot;%1&amp;quot; non è un file.</translation>
    </message>
    <message>
        <source>Pipes and devices cannot be opened. Choose a song or a video.</source>
        <translation>Pipe e dispositivi non possono essere aperti. Scegli una canzone o un video.</translation>
    </message>
</context>
<context>
    <name>CUpdateOptionWidgetClass</name>
    <message>
        <source>Enable automatic update check</source>
        <translation>Controlla automaticamente gli aggiornamenti</translation>
    </message>
    <message>
        <source>Number of days between update checks</source>
        <translation>Giorni tra un controllo e l&apos;altro</translation>
    </message>
    <message>
        <source>Update every day</source>
        <translation>Ogni giorno</translation>
    </message>
    <message>
        <source>Update every week</source>
        <translation>Ogni settimana</translation>
    </message>
    <message>
        <source>Update every month</source>
        <translation>Ogni mese</translation>
    </message>
</context>
<context>
    <name>CUpgradeClass</name>
    <message>
        <source>Download Now</source>
        <translation>Scarica ora</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>CUpgradeDlg</name>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;A new version is avaliable now! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;È disponibile una nuova versione! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>What&apos;s new for this version:</source>
        <translation>Novità di questa versione:</translation>
    </message>
</context>
<context>
    <name>CWaveWnd</name>
    <message>
        <source>Space plays, Shift+Space previews the selection, I and O set its start and end, Alt and Ctrl with the arrow keys move its edges</source>
        <translation>Spazio riproduce, Maiusc+Spazio ascolta la selezione, I e O fissano inizio e fine, Alt e Ctrl con le frecce spostano i bordi</translation>
    </message>
    <message>
        <source>Waveform, no song open</source>
        <translation>Forma d&apos;onda, nessun brano aperto</translation>
    </message>
    <message>
        <source>Selection %1 to %2 of %3</source>
        <translation>Selezione da %1 a %2 di %3</translation>
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
        <translation>Copyright © 2010-2026 Vandrel Software. Tutti i diritti riservati.</translation>
    </message>
    <message>
        <source>&lt;p&gt;Support: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Supporto: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Home Page: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Sito web: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Seleziona un file nell&apos;elenco a sinistra&lt;br /&gt;oppure trascina un brano o un video nella finestra.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Spiacenti, il file &amp;quot;%1&amp;quot; non è stato convertito correttamente.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Si è verificato un errore.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Riprova o importa un altro file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;You are using the newest version now!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;Stai già usando la versione più recente!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
</TS>
