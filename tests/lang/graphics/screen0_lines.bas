10 ' The first 200-line mode: each graphic row is two rows of the screen.
20 SCREEN 0,0:CLS 3
30 FOR I=0 TO 6:LINE(I*90,0)-(639-I*60,199),I+1:NEXT I
40 LINE(100,50)-(300,90),5,B
50 PSET(5,100),6:PSET(6,199),4
