10 ' Twenty milliseconds lie between a program and the next one that it asks for, and no others:
20 ' the music that goes on meanwhile does not run ahead.
30 T=SYSTEMTIME:PRINT T:IF T>250 THEN END
40 IF T=0 THEN PLAY "MBL1CCCC"
50 SLEEP 100
60 RUN
