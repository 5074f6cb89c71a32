10 ' All slopes of small lines, both ways round; halves go to the larger coordinate.
20 SCREEN 3:CLS 3
30 FOR I=0 TO 12:FOR J=0 TO 12
40 X=20+I*45:Y=20+J*28
50 LINE(X,Y)-(X+I*2,Y+J),7
60 LINE(X+I,Y+20)-(X,Y+20-J),2
70 NEXT J,I
