10 ' A round of four bars for three voices, each a bar behind the one before it.
20 WIDTH 80,25:CONSOLE 0,25:COLOR 6:CLS 3
30 PRINT "A round for flute, oboe and clarinet"
40 COLOR 7:PRINT
50 ' The tune: all four bars fit upon each other, beat by beat.
60 FOR I=1 TO 4
70 READ BAR$:TUNE$=TUNE$+BAR$
80 NEXT I
90 TUNE$=TUNE$+TUNE$
100 DATA "C4F4D4E4", "E8G8A8F8G8B8>C4<", "G4A8>C8<B8D8G4", "C4<A4B4>C4"
110 ' Voices 7 to 9; a whole rest for each bar of waiting.
120 FLUTE$="MBT132@7V13O5"+TUNE$
130 OBOE$="MB@8V12O4R1"+TUNE$
140 CLARINET$="MB@9V11O3R1R1"+TUNE$
150 PLAY FLUTE$,OBOE$,CLARINET$
160 ' The program goes on while the music plays; a bar takes 1.806 seconds.
170 FOR BAR=1 TO 10
180 PRINT "Bar";BAR;TAB(10);
190 IF BAR<=8 THEN PRINT " flute";
200 IF BAR>=2 AND BAR<=9 THEN PRINT " oboe";
210 IF BAR>=3 THEN PRINT " clarinet";
220 PRINT
230 SLEEP 1806
240 NEXT BAR
