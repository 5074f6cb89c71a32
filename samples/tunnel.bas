10 ' Drives through a tunnel without drawing anything: only the palette moves.
20 SCREEN 3:CONSOLE 0,25:COLOR 7,0,0,7,2:CLS 3:STEPS=60
30 FOR I=1 TO 14:COLOR=(I,0):NEXT I:COLOR=(15,&HFFF)
40 ' Rings from the mouth to the far end, each a little aside of the last.
50 R=420:N=0
60 WHILE R>14
70 T=N*0.13
80 CIRCLE(320+60*SIN(T),200+30*SIN(T*1.7)),R,N MOD 14+1,,,0.8,F
90 R=R*0.92:N=N+1
100 WEND
110 CIRCLE(320+60*SIN(T),200+30*SIN(T*1.7)),9,15,,,,F
120 COLOR 7:LOCATE 2,23:PRINT "Rings:";N
130 ' Light runs along the tunnel.
140 FOR S=1 TO STEPS
150 FOR I=1 TO 14
160 P=(I+S) MOD 14:L=P:IF P>7 THEN L=14-P
170 COLOR=(I,INT(L*1.4)*256+L*16+L+8)
180 NEXT I
190 SLEEP 40
200 NEXT S
210 LOCATE 2,21
