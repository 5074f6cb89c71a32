10 ' At most two notes are left from 1.493 s on: passes there, at 1.928, 1.991, 2.426 and 2.488 s.
20 ' Those within one SLEEP are one event.
30 ON PLAY(1,2) GOSUB 100
40 PLAY ON
50 PLAY "MBCDEFG"
60 FOR I=1 TO 30:SLEEP 100:NEXT
70 END
100 PRINT "few left"
110 RETURN
