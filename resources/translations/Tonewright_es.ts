<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version: </source>
        <translation>Versión: </translation>
    </message>
</context>
<context>
    <name>CCrashReportDlg</name>
    <message>
        <source>Problem Report for Tonewright</source>
        <translation>Informe de problemas de Tonewright</translation>
    </message>
    <message>
        <source>If you found any problem with Tonewright.</source>
        <translation>¿Ha encontrado algún problema en Tonewright?</translation>
    </message>
    <message>
        <source>Tonewright quitted unexpectedly last time.</source>
        <translation>Tonewright se cerró inesperadamente la última vez.</translation>
    </message>
    <message>
        <source>Please click &amp;quot;Send report&amp;quot; to Email the report to us. </source>
        <translation>Haga clic en &amp;quot;Enviar informe&amp;quot; para enviarnos el informe por correo electrónico. </translation>
    </message>
    <message>
        <source>Your report will help Vandrel improve this software. Your personal information will not be included in this report.</source>
        <translation>Su informe ayudará a Vandrel a mejorar este software. El informe no incluirá su información personal.</translation>
    </message>
    <message>
        <source>For more product support, visit </source>
        <translation>Para obtener más asistencia sobre el producto, visite </translation>
    </message>
    <message>
        <source>Send Report</source>
        <translation>Enviar informe</translation>
    </message>
    <message>
        <source>[Please describe your problem here.]</source>
        <translation>[Describa aquí su problema.]</translation>
    </message>
</context>
<context>
    <name>CFilterEdit</name>
    <message>
        <source>All</source>
        <translation>Todo</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Título</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Álbum</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Borrar</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtrar</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>Buscar en</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
</context>
<context>
    <name>CHelloWnd</name>
    <message>
        <source>Learn More</source>
        <translation>Más información</translation>
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
        <translation>Cargando la biblioteca…</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Biblioteca</translation>
    </message>
    <message>
        <source>PlayList</source>
        <translation>Listas de reproducción</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Música</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Películas</translation>
    </message>
    <message>
        <source>Ringtones</source>
        <translation>Tonos</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Series de TV</translation>
    </message>
    <message>
        <source>Podcasts</source>
        <translation>Podcasts</translation>
    </message>
    <message>
        <source>Purchased</source>
        <translation>Comprado</translation>
    </message>
</context>
<context>
    <name>CMainWnd</name>
    <message>
        <source>Open File</source>
        <translation>Abrir archivo</translation>
    </message>
    <message>
        <source>Media Files (*.*)</source>
        <translation>Archivos multimedia (*.*)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Preview Selected</source>
        <translation>Escuchar la selección</translation>
    </message>
    <message>
        <source>A ringtone named &quot;%1&quot; is already in your library.&lt;br&gt;Replace it?</source>
        <translation>Ya hay un tono con el nombre «%1» en su biblioteca.&lt;br&gt;¿Desea reemplazarlo?</translation>
    </message>
    <message>
        <source>I am creating a ringtone %1 with Tonewright. </source>
        <translation>Estoy creando el tono %1 con Tonewright. </translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Ventana</translation>
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
        <translation>Idioma</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
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
        <translation>Adelante</translation>
    </message>
    <message>
        <source>Backward  </source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Show or Hide Music Cover, Video Preview Box</source>
        <translation>Mostrar u ocultar la carátula y la vista previa del vídeo</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Abrir archivos</translation>
    </message>
    <message>
        <source>Timeline Zoom Out</source>
        <translation>Alejar la línea de tiempo</translation>
    </message>
    <message>
        <source>Timeline Zoom In</source>
        <translation>Acercar la línea de tiempo</translation>
    </message>
    <message>
        <source>Set as Start Time</source>
        <translation>Establecer como inicio</translation>
    </message>
    <message>
        <source>Set as End Time</source>
        <translation>Establecer como final</translation>
    </message>
    <message>
        <source>Voice Zoom Out</source>
        <translation>Bajar el volumen</translation>
    </message>
    <message>
        <source>Voice Zoom In</source>
        <translation>Subir el volumen</translation>
    </message>
    <message>
        <source>Quit Editing</source>
        <translation>Salir de la edición</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>Fundido de salida</translation>
    </message>
    <message>
        <source>Fade  in</source>
        <translation>Fundido de entrada</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>End  Time</source>
        <translation>Final</translation>
    </message>
    <message>
        <source>Start to Create</source>
        <translation>Crear el tono</translation>
    </message>
    <message>
        <source>Tweet Your Ringtone</source>
        <translation>Tuitear su tono</translation>
    </message>
    <message>
        <source>Find us on Facebook</source>
        <translation>Síganos en Facebook</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Bring All to Front</source>
        <translation>Traer todo al frente</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de Tonewright</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Soporte técnico</translation>
    </message>
    <message>
        <source>Help Topic</source>
        <translation>Temas de ayuda</translation>
    </message>
    <message>
        <source>Crash Report</source>
        <translation>Informe de errores</translation>
    </message>
    <message>
        <source>Find us on &amp;Facebook</source>
        <translation>Síganos en &amp;Facebook</translation>
    </message>
    <message>
        <source>Find us on &amp;Twitter</source>
        <translation>Síganos en &amp;Twitter</translation>
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
        <translation>Buscar act&amp;ualizaciones</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Opciones</translation>
    </message>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Network connection failure,&lt;br&gt;please check the validity of the proxy.</source>
        <translation>Error de conexión de red.&lt;br&gt;Compruebe que la configuración del proxy sea válida.</translation>
    </message>
    <message>
        <source>The url is invalid</source>
        <translation>La URL no es válida</translation>
    </message>
    <message>
        <source>Sorry, the product information can&apos;t be found.</source>
        <translation>Lo sentimos, no se ha encontrado la información del producto.</translation>
    </message>
    <message>
        <source>The selection is %1 seconds long. Phones refuse this kind of ringtone when it is longer than %2 seconds.&lt;br&gt;Create it anyway?</source>
        <translation>La selección dura %1 segundos. Los teléfonos rechazan este tipo de tono si dura más de %2 segundos.&lt;br&gt;¿Crearlo de todos modos?</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Midiendo…</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>Silencio</translation>
    </message>
    <message>
        <source>%1 LUFS</source>
        <translation>%1 LUFS</translation>
    </message>
    <message>
        <source>Loudness of the selection as it will be written; true peak %1 dBTP</source>
        <translation>Sonoridad de la selección tal como se escribirá; pico real %1 dBTP</translation>
    </message>
    <message>
        <source>&amp;Normalize</source>
        <translation>&amp;Normalizar</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Desactivado</translation>
    </message>
    <message>
        <source>Standard (−14 LUFS)</source>
        <translation>Estándar (−14 LUFS)</translation>
    </message>
    <message>
        <source>Loud (−11 LUFS)</source>
        <translation>Alto (−11 LUFS)</translation>
    </message>
    <message>
        <source>Sets the gain so that the ringtone plays at a chosen loudness, without clipping</source>
        <translation>Ajusta la ganancia para que el tono suene con la sonoridad elegida, sin saturar</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Suggest the best part</source>
        <translation>Sugerir la mejor parte</translation>
    </message>
    <message>
        <source>Suggest the &amp;Best Part</source>
        <translation>Sugerir la &amp;mejor parte</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>Volumen: %1 %</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edición</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
    <message>
        <source>Set Start at the Play Position</source>
        <translation>Inicio en la posición de reproducción</translation>
    </message>
    <message>
        <source>Set End at the Play Position</source>
        <translation>Fin en la posición de reproducción</translation>
    </message>
    <message>
        <source>Move the Start Earlier</source>
        <translation>Adelantar el inicio</translation>
    </message>
    <message>
        <source>Move the Start Later</source>
        <translation>Retrasar el inicio</translation>
    </message>
    <message>
        <source>Move the End Earlier</source>
        <translation>Adelantar el final</translation>
    </message>
    <message>
        <source>Move the End Later</source>
        <translation>Retrasar el final</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Reproducir</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>Reproducir o pausar</translation>
    </message>
    <message>
        <source>Preview the Selection</source>
        <translation>Escuchar la selección</translation>
    </message>
    <message>
        <source>Loop the Preview</source>
        <translation>Repetir la vista previa</translation>
    </message>
    <message>
        <source>Back One Second</source>
        <translation>Retroceder un segundo</translation>
    </message>
    <message>
        <source>Forward One Second</source>
        <translation>Avanzar un segundo</translation>
    </message>
    <message>
        <source>Go to the Start of the Selection</source>
        <translation>Ir al inicio de la selección</translation>
    </message>
    <message>
        <source>Go to the End of the Selection</source>
        <translation>Ir al final de la selección</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Acercar</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Alejar</translation>
    </message>
    <message>
        <source>Search the library</source>
        <translation>Buscar en la biblioteca</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Biblioteca</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Canciones</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Adelante</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Bajar volumen</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Subir volumen</translation>
    </message>
    <message>
        <source>Fade-in length in seconds</source>
        <translation>Duración del fundido de entrada en segundos</translation>
    </message>
    <message>
        <source>Fade-out length in seconds</source>
        <translation>Duración del fundido de salida en segundos</translation>
    </message>
    <message>
        <source>Kind of ringtone</source>
        <translation>Tipo de tono</translation>
    </message>
    <message>
        <source>Scroll the waveform</source>
        <translation>Desplazar la forma de onda</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Canción</translation>
    </message>
    <message>
        <source>Play or Pause the Preview</source>
        <translation>Reproducir o pausar la vista previa</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Fundido de entrada</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>Hora de fin</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normalizar</translation>
    </message>
    <message>
        <source>Changes the volume of the ringtone; Normalize replaces it</source>
        <translation>Cambia el volumen del tono; Normalizar lo sustituye</translation>
    </message>
    <message>
        <source>Writes the selection as a ringtone</source>
        <translation>Escribe la selección como tono</translation>
    </message>
    <message>
        <source>A ringtone is being written. Close Tonewright when it is done?</source>
        <translation>Se está escribiendo un tono. ¿Cerrar Tonewright cuando termine?</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Windows</source>
        <translation>&amp;Ventanas</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Idioma</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ay&amp;uda</translation>
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
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>CNewestDlgClass</name>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>COptionDlgClass</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualizaciones</translation>
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
        <translation>HTTP con caché</translation>
    </message>
    <message>
        <source>FtpCaching</source>
        <translation>FTP con caché</translation>
    </message>
</context>
<context>
    <name>CProxyWidgetClass</name>
    <message>
        <source>use proxy</source>
        <translation>Usar proxy</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Servidor:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Puerto:</translation>
    </message>
    <message>
        <source>Proxy Type</source>
        <translation>Tipo de proxy</translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>Nombre de usuario</translation>
    </message>
    <message>
        <source>PassWord</source>
        <translation>Contraseña</translation>
    </message>
</context>
<context>
    <name>CRingtoneExport</name>
    <message>
        <source>iPhone ringtone</source>
        <translation>Tono de iPhone</translation>
    </message>
    <message>
        <source>iPhone alert tone</source>
        <translation>Tono de aviso de iPhone</translation>
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
        <translation>%1 añadido a Tonos</translation>
    </message>
    <message>
        <source>%1 was made, but the library did not take it</source>
        <translation>%1 se ha creado, pero la biblioteca no lo aceptó</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
</context>
<context>
    <name>CTryAgainDlg</name>
    <message>
        <source>Try again</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Sorry, the file &amp;quot;%1&amp;quot; could not be read.</source>
        <translation>Lo sentimos, no se pudo leer el archivo &amp;quot;%1&amp;quot;.</translation>
    </message>
    <message>
        <source>Check that it is still there, then try again.</source>
        <translation>Compruebe que sigue ahí y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a media file.</source>
        <translation>&amp;quot;%1&amp;quot; no es un archivo multimedia.</translation>
    </message>
    <message>
        <source>Choose a song or a video.</source>
        <translation>Elija una canción o un vídeo.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; has no sound in it.</source>
        <translation>&amp;quot;%1&amp;quot; no tiene sonido.</translation>
    </message>
    <message>
        <source>Choose a song or a video with sound.</source>
        <translation>Elija una canción o un vídeo con sonido.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too short.</source>
        <translation>&amp;quot;%1&amp;quot; es demasiado corto.</translation>
    </message>
    <message>
        <source>The shortest ringtone is %1 seconds.</source>
        <translation>El tono más corto dura %1 segundos.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too long.</source>
        <translation>&amp;quot;%1&amp;quot; es demasiado largo.</translation>
    </message>
    <message>
        <source>The editor opens up to %1 hours %2 minutes of sound.</source>
        <translation>El editor abre hasta %1 horas %2 minutos de sonido.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a file.</source>
        <translation>&amp;quot;%1&amp;quot; no es un archivo.</translation>
    </message>
    <message>
        <source>Pipes and devices cannot be opened. Choose a song or a video.</source>
        <translation>No se pueden abrir tuberías ni dispositivos. Elija una canción o un vídeo.</translation>
    </message>
</context>
<context>
    <name>CUpdateOptionWidgetClass</name>
    <message>
        <source>Enable automatic update check</source>
        <translation>Buscar actualizaciones automáticamente</translation>
    </message>
    <message>
        <source>Number of days between update checks</source>
        <translation>Días entre búsquedas de actualizaciones</translation>
    </message>
    <message>
        <source>Update every day</source>
        <translation>Cada día</translation>
    </message>
    <message>
        <source>Update every week</source>
        <translation>Cada semana</translation>
    </message>
    <message>
        <source>Update every month</source>
        <translation>Cada mes</translation>
    </message>
</context>
<context>
    <name>CUpgradeClass</name>
    <message>
        <source>Download Now</source>
        <translation>Descargar ahora</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>CUpgradeDlg</name>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;A new version is avaliable now! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;¡Hay una nueva versión disponible! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>What&apos;s new for this version:</source>
        <translation>Novedades de esta versión:</translation>
    </message>
</context>
<context>
    <name>CWaveWnd</name>
    <message>
        <source>Space plays, Shift+Space previews the selection, I and O set its start and end, Alt and Ctrl with the arrow keys move its edges</source>
        <translation>Espacio reproduce, Mayús+Espacio escucha la selección, I y O fijan su inicio y su final, Alt y Ctrl con las flechas mueven sus bordes</translation>
    </message>
    <message>
        <source>Waveform, no song open</source>
        <translation>Forma de onda, ninguna canción abierta</translation>
    </message>
    <message>
        <source>Selection %1 to %2 of %3</source>
        <translation>Selección de %1 a %2 de %3</translation>
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
        <translation>© 2010-2026 Vandrel Software. Todos los derechos reservados.</translation>
    </message>
    <message>
        <source>&lt;p&gt;Support: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Soporte técnico: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Home Page: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Sitio web: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Seleccione un archivo en la lista de la izquierda&lt;br /&gt;o arrastre una canción o un vídeo a la ventana.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Lo sentimos, el archivo &amp;quot;%1&amp;quot; no se ha convertido correctamente.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Se ha producido un error.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Vuelva a intentarlo o importe otro archivo.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;You are using the newest version now!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;¡Ya está usando la versión más reciente!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
</TS>
