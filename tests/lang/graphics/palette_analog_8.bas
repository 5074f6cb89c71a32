10 ' The analog mode of 8 colours: green, red and blue of four bits each.
20 SCREEN 3:COLOR 7,0,0,7,1:CLS 3
30 FOR I=0 TO 7:LINE(I*80,100)-(I*80+79,299),I,BF:COLOR=(I,I*&H111+&H80):NEXT I
40 COLOR=(7,&HFFF):COLOR=(0,&H108)
