<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt">
<context>
    <name>CAboutDlg</name>
    <message>
        <source>Version: </source>
        <translation>Versão: </translation>
    </message>
</context>
<context>
    <name>CCrashReportDlg</name>
    <message>
        <source>Problem Report for Tonewright</source>
        <translation>Relatório de problemas do Tonewright</translation>
    </message>
    <message>
        <source>If you found any problem with Tonewright.</source>
        <translation>Encontrou algum problema no Tonewright?</translation>
    </message>
    <message>
        <source>Tonewright quitted unexpectedly last time.</source>
        <translation>O Tonewright foi encerrado inesperadamente da última vez.</translation>
    </message>
    <message>
        <source>Please click &amp;quot;Send report&amp;quot; to Email the report to us. </source>
        <translation>Clique em &amp;quot;Enviar relatório&amp;quot; para nos enviar o relatório por e-mail. </translation>
    </message>
    <message>
        <source>Your report will help Vandrel improve this software. Your personal information will not be included in this report.</source>
        <translation>Seu relatório ajudará a Vandrel a melhorar este software. Suas informações pessoais não serão incluídas neste relatório.</translation>
    </message>
    <message>
        <source>For more product support, visit </source>
        <translation>Para obter mais suporte ao produto, acesse </translation>
    </message>
    <message>
        <source>Send Report</source>
        <translation>Enviar relatório</translation>
    </message>
    <message>
        <source>[Please describe your problem here.]</source>
        <translation>[Descreva seu problema aqui.]</translation>
    </message>
</context>
<context>
    <name>CFilterEdit</name>
    <message>
        <source>All</source>
        <translation>Tudo</translation>
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
        <translation>Limpar</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtrar</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>Pesquisar em</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Pesquisar</translation>
    </message>
</context>
<context>
    <name>CHelloWnd</name>
    <message>
        <source>Learn More</source>
        <translation>Saiba mais</translation>
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
        <translation>Carregando a biblioteca…</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Biblioteca</translation>
    </message>
    <message>
        <source>PlayList</source>
        <translation>Playlists</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Músicas</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Filmes</translation>
    </message>
    <message>
        <source>Ringtones</source>
        <translation>Toques</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Programas de TV</translation>
    </message>
    <message>
        <source>Podcasts</source>
        <translation>Podcasts</translation>
    </message>
    <message>
        <source>Purchased</source>
        <translation>Comprados</translation>
    </message>
</context>
<context>
    <name>CMainWnd</name>
    <message>
        <source>Open File</source>
        <translation>Abrir arquivo</translation>
    </message>
    <message>
        <source>Media Files (*.*)</source>
        <translation>Arquivos de mídia (*.*)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproduzir</translation>
    </message>
    <message>
        <source>Preview Selected</source>
        <translation>Ouvir a seleção</translation>
    </message>
    <message>
        <source>A ringtone named &quot;%1&quot; is already in your library.&lt;br&gt;Replace it?</source>
        <translation>Já existe um toque chamado “%1” na sua biblioteca.&lt;br&gt;Deseja substituí-lo?</translation>
    </message>
    <message>
        <source>I am creating a ringtone %1 with Tonewright. </source>
        <translation>Estou criando o toque %1 com o Tonewright. </translation>
    </message>
    <message>
        <source>File</source>
        <translation>Arquivo</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Janela</translation>
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
        <translation>Ajuda</translation>
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
        <translation>Avançar</translation>
    </message>
    <message>
        <source>Backward  </source>
        <translation>Voltar</translation>
    </message>
    <message>
        <source>Show or Hide Music Cover, Video Preview Box</source>
        <translation>Mostrar ou ocultar a capa do álbum e a prévia do vídeo</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Abrir arquivos</translation>
    </message>
    <message>
        <source>Timeline Zoom Out</source>
        <translation>Diminuir o zoom da linha do tempo</translation>
    </message>
    <message>
        <source>Timeline Zoom In</source>
        <translation>Aumentar o zoom da linha do tempo</translation>
    </message>
    <message>
        <source>Set as Start Time</source>
        <translation>Definir como início</translation>
    </message>
    <message>
        <source>Set as End Time</source>
        <translation>Definir como fim</translation>
    </message>
    <message>
        <source>Voice Zoom Out</source>
        <translation>Diminuir o volume</translation>
    </message>
    <message>
        <source>Voice Zoom In</source>
        <translation>Aumentar o volume</translation>
    </message>
    <message>
        <source>Quit Editing</source>
        <translation>Sair da edição</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>Saída gradual</translation>
    </message>
    <message>
        <source>Fade  in</source>
        <translation>Entrada gradual</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Início</translation>
    </message>
    <message>
        <source>End  Time</source>
        <translation>Fim</translation>
    </message>
    <message>
        <source>Start to Create</source>
        <translation>Criar o toque</translation>
    </message>
    <message>
        <source>Tweet Your Ringtone</source>
        <translation>Tuitar seu toque</translation>
    </message>
    <message>
        <source>Find us on Facebook</source>
        <translation>Siga-nos no Facebook</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Salvar como</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
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
        <translation>Trazer tudo para a frente</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Sobre o Tonewright</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Suporte</translation>
    </message>
    <message>
        <source>Help Topic</source>
        <translation>Tópicos de ajuda</translation>
    </message>
    <message>
        <source>Crash Report</source>
        <translation>Relatório de falhas</translation>
    </message>
    <message>
        <source>Find us on &amp;Facebook</source>
        <translation>Siga-nos no &amp;Facebook</translation>
    </message>
    <message>
        <source>Find us on &amp;Twitter</source>
        <translation>Siga-nos no &amp;Twitter</translation>
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
        <translation>Verificar at&amp;ualizações</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Opções</translation>
    </message>
    <message>
        <source>Tonewright</source>
        <translation>Tonewright</translation>
    </message>
    <message>
        <source>Network connection failure,&lt;br&gt;please check the validity of the proxy.</source>
        <translation>Falha na conexão de rede.&lt;br&gt;Verifique se as configurações do proxy são válidas.</translation>
    </message>
    <message>
        <source>The url is invalid</source>
        <translation>A URL é inválida</translation>
    </message>
    <message>
        <source>Sorry, the product information can&apos;t be found.</source>
        <translation>Desculpe, as informações do produto não foram encontradas.</translation>
    </message>
    <message>
        <source>The selection is %1 seconds long. Phones refuse this kind of ringtone when it is longer than %2 seconds.&lt;br&gt;Create it anyway?</source>
        <translation>A seleção tem %1 segundos. Os telefones recusam este tipo de toque quando passa de %2 segundos.&lt;br&gt;Criar mesmo assim?</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Medindo…</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>Silêncio</translation>
    </message>
    <message>
        <source>%1 LUFS</source>
        <translation>%1 LUFS</translation>
    </message>
    <message>
        <source>Loudness of the selection as it will be written; true peak %1 dBTP</source>
        <translation>Loudness da seleção como será gravada; pico real %1 dBTP</translation>
    </message>
    <message>
        <source>&amp;Normalize</source>
        <translation>&amp;Normalizar</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Desligado</translation>
    </message>
    <message>
        <source>Standard (−14 LUFS)</source>
        <translation>Padrão (−14 LUFS)</translation>
    </message>
    <message>
        <source>Loud (−11 LUFS)</source>
        <translation>Alto (−11 LUFS)</translation>
    </message>
    <message>
        <source>Sets the gain so that the ringtone plays at a chosen loudness, without clipping</source>
        <translation>Ajusta o ganho para que o toque tenha a loudness escolhida, sem distorção</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Suggest the best part</source>
        <translation>Sugerir o melhor trecho</translation>
    </message>
    <message>
        <source>Suggest the &amp;Best Part</source>
        <translation>Sugerir o &amp;melhor trecho</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>Volume: %1%</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Refazer</translation>
    </message>
    <message>
        <source>Set Start at the Play Position</source>
        <translation>Início na posição de reprodução</translation>
    </message>
    <message>
        <source>Set End at the Play Position</source>
        <translation>Fim na posição de reprodução</translation>
    </message>
    <message>
        <source>Move the Start Earlier</source>
        <translation>Adiantar o início</translation>
    </message>
    <message>
        <source>Move the Start Later</source>
        <translation>Atrasar o início</translation>
    </message>
    <message>
        <source>Move the End Earlier</source>
        <translation>Adiantar o fim</translation>
    </message>
    <message>
        <source>Move the End Later</source>
        <translation>Atrasar o fim</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Reproduzir</translation>
    </message>
    <message>
        <source>Play or Pause</source>
        <translation>Reproduzir ou pausar</translation>
    </message>
    <message>
        <source>Preview the Selection</source>
        <translation>Ouvir a seleção</translation>
    </message>
    <message>
        <source>Loop the Preview</source>
        <translation>Repetir a prévia</translation>
    </message>
    <message>
        <source>Back One Second</source>
        <translation>Voltar um segundo</translation>
    </message>
    <message>
        <source>Forward One Second</source>
        <translation>Avançar um segundo</translation>
    </message>
    <message>
        <source>Go to the Start of the Selection</source>
        <translation>Ir para o início da seleção</translation>
    </message>
    <message>
        <source>Go to the End of the Selection</source>
        <translation>Ir para o fim da seleção</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Ampliar</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Reduzir</translation>
    </message>
    <message>
        <source>Search the library</source>
        <translation>Pesquisar na biblioteca</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Biblioteca</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Músicas</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Voltar</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Avançar</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Diminuir volume</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Aumentar volume</translation>
    </message>
    <message>
        <source>Fade-in length in seconds</source>
        <translation>Duração do fade-in em segundos</translation>
    </message>
    <message>
        <source>Fade-out length in seconds</source>
        <translation>Duração do fade-out em segundos</translation>
    </message>
    <message>
        <source>Kind of ringtone</source>
        <translation>Tipo de toque</translation>
    </message>
    <message>
        <source>Scroll the waveform</source>
        <translation>Rolar a forma de onda</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Música</translation>
    </message>
    <message>
        <source>Play or Pause the Preview</source>
        <translation>Reproduzir ou pausar a prévia</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Fade-in</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>Hora de término</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normalizar</translation>
    </message>
    <message>
        <source>Changes the volume of the ringtone; Normalize replaces it</source>
        <translation>Muda o volume do toque; Normalizar o substitui</translation>
    </message>
    <message>
        <source>Writes the selection as a ringtone</source>
        <translation>Grava a seleção como toque</translation>
    </message>
    <message>
        <source>A ringtone is being written. Close Tonewright when it is done?</source>
        <translation>Um toque está sendo gravado. Fechar o Tonewright quando terminar?</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Arquivo</translation>
    </message>
    <message>
        <source>&amp;Windows</source>
        <translation>&amp;Janelas</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Idioma</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Aj&amp;uda</translation>
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
        <translation>Nome</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
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
        <translation>OK</translation>
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
        <translation>OK</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Atualizações</translation>
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
        <translation>HTTP com cache</translation>
    </message>
    <message>
        <source>FtpCaching</source>
        <translation>FTP com cache</translation>
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
        <translation>Host:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Porta:</translation>
    </message>
    <message>
        <source>Proxy Type</source>
        <translation>Tipo de proxy</translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>Nome de usuário</translation>
    </message>
    <message>
        <source>PassWord</source>
        <translation>Senha</translation>
    </message>
</context>
<context>
    <name>CRingtoneExport</name>
    <message>
        <source>iPhone ringtone</source>
        <translation>Toque de iPhone</translation>
    </message>
    <message>
        <source>iPhone alert tone</source>
        <translation>Som de alerta de iPhone</translation>
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
        <translation>Áudio AAC (.m4a)</translation>
    </message>
</context>
<context>
    <name>CRingtoneNotice</name>
    <message>
        <source>%1 added to Ringtones</source>
        <translation>%1 adicionado a Toques</translation>
    </message>
    <message>
        <source>%1 was made, but the library did not take it</source>
        <translation>%1 foi criado, mas a biblioteca não o aceitou</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar na pasta</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproduzir</translation>
    </message>
</context>
<context>
    <name>CTryAgainDlg</name>
    <message>
        <source>Try again</source>
        <translation>Tentar novamente</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Sorry, the file &amp;quot;%1&amp;quot; could not be read.</source>
        <translation>Desculpe, não foi possível ler o arquivo &amp;quot;%1&amp;quot;.</translation>
    </message>
    <message>
        <source>Check that it is still there, then try again.</source>
        <translation>Verifique se ele ainda está lá e tente novamente.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a media file.</source>
        <translation>&amp;quot;%1&amp;quot; não é um arquivo de mídia.</translation>
    </message>
    <message>
        <source>Choose a song or a video.</source>
        <translation>Escolha uma música ou um vídeo.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; has no sound in it.</source>
        <translation>&amp;quot;%1&amp;quot; não tem som.</translation>
    </message>
    <message>
        <source>Choose a song or a video with sound.</source>
        <translation>Escolha uma música ou um vídeo com som.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too short.</source>
        <translation>&amp;quot;%1&amp;quot; é curto demais.</translation>
    </message>
    <message>
        <source>The shortest ringtone is %1 seconds.</source>
        <translation>O toque mais curto tem %1 segundos.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is too long.</source>
        <translation>&amp;quot;%1&amp;quot; é longo demais.</translation>
    </message>
    <message>
        <source>The editor opens up to %1 hours %2 minutes of sound.</source>
        <translation>O editor abre até %1 horas %2 minutos de som.</translation>
    </message>
    <message>
        <source>&amp;quot;%1&amp;quot; is not a file.</source>
        <translation>&amp;quot;%1&amp;quot; não é um arquivo.</translation>
    </message>
    <message>
        <source>Pipes and devices cannot be opened. Choose a song or a video.</source>
        <translation>Pipes e dispositivos não podem ser abertos. Escolha uma música ou um vídeo.</translation>
    </message>
</context>
<context>
    <name>CUpdateOptionWidgetClass</name>
    <message>
        <source>Enable automatic update check</source>
        <translation>Verificar atualizações automaticamente</translation>
    </message>
    <message>
        <source>Number of days between update checks</source>
        <translation>Dias entre as verificações de atualização</translation>
    </message>
    <message>
        <source>Update every day</source>
        <translation>Todos os dias</translation>
    </message>
    <message>
        <source>Update every week</source>
        <translation>Toda semana</translation>
    </message>
    <message>
        <source>Update every month</source>
        <translation>Todo mês</translation>
    </message>
</context>
<context>
    <name>CUpgradeClass</name>
    <message>
        <source>Download Now</source>
        <translation>Baixar agora</translation>
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
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin-top:12px; margin-bottom:12px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;Uma nova versão está disponível! &lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>What&apos;s new for this version:</source>
        <translation>Novidades desta versão:</translation>
    </message>
</context>
<context>
    <name>CWaveWnd</name>
    <message>
        <source>Space plays, Shift+Space previews the selection, I and O set its start and end, Alt and Ctrl with the arrow keys move its edges</source>
        <translation>Espaço reproduz, Shift+Espaço ouve a seleção, I e O definem o início e o fim, Alt e Ctrl com as setas movem as bordas</translation>
    </message>
    <message>
        <source>Waveform, no song open</source>
        <translation>Forma de onda, nenhuma música aberta</translation>
    </message>
    <message>
        <source>Selection %1 to %2 of %3</source>
        <translation>Seleção de %1 a %2 de %3</translation>
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
        <translation>© 2010-2026 Vandrel Software. Todos os direitos reservados.</translation>
    </message>
    <message>
        <source>&lt;p&gt;Support: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Suporte: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Home Page: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;Site: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Please select file in the left list,&lt;br /&gt;Or drag a song or movie file into the window.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head&gt;&lt;style type=&quot;text/css&quot;&gt;body { font-family: Arial; font-size: 12px; color: #333; }&lt;/style&gt;&lt;/head&gt;&lt;body&gt;&lt;p align=&quot;left&quot; style=&quot;font-family: Verdana, Geneva, sans-serif; font-weight: bold; color: #626567; text-shadow: 1px 1px 2px #fff;&quot;&gt;Selecione um arquivo na lista à esquerda&lt;br /&gt;ou arraste uma música ou um vídeo para a janela.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Sorry, the file &amp;quot;%1&amp;quot; is not converted correctly.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Something wrong happened.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Please try again or import another file.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Desculpe, o arquivo &amp;quot;%1&amp;quot; não foi convertido corretamente.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Algo deu errado.&lt;/p&gt;&lt;p style=&quot;margin:0px;&quot;&gt;Tente novamente ou importe outro arquivo.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;You are using the newest version now!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;p style=&quot;margin:0px;&quot;&gt;&lt;span style=&quot;font-weight:600;&quot;&gt;Você está usando a versão mais recente!&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
</TS>
