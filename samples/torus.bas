10 ' A ring as a wire frame, seen from above its side; what is nearer is brighter.
20 SCREEN 3:CONSOLE 0,25:COLOR 7,0,0,7,0:CLS 3
30 N=32:M=16:DIM X(N,M),Y(N,M),Z(N,M)
40 PI=3.1415927:TILT=0.9:TURN=0.35
50 ' Points of the ring, turned and brought to the screen in perspective.
60 FOR I=0 TO N:FOR J=0 TO M
70 U=I*2*PI/N:V=J*2*PI/M
80 R=2+0.85*COS(V)
90 PX=R*COS(U):PY=R*SIN(U):PZ=0.85*SIN(V)
100 QY=PY*COS(TILT)-PZ*SIN(TILT):QZ=PY*SIN(TILT)+PZ*COS(TILT)
110 QX=PX*COS(TURN)-QY*SIN(TURN):QY=PX*SIN(TURN)+QY*COS(TURN)
120 D=560/(QZ+7)
130 X(I,J)=320+QX*D:Y(I,J)=195-QY*D*0.8:Z(I,J)=QZ
140 NEXT J,I
150 ' The far lines first: blue, then cyan, then white over them.
160 FOR K=1 TO 3
170 FOR I=0 TO N-1:FOR J=0 TO M-1
180 Z=Z(I,J):P=1
190 IF Z<0.8 THEN P=2
200 IF Z<-0.8 THEN P=3
210 IF P<>K THEN 250
220 C=VAL(MID$("157",K,1))
230 LINE(X(I,J),Y(I,J))-(X(I+1,J),Y(I+1,J)),C
240 LINE(X(I,J),Y(I,J))-(X(I,J+1),Y(I,J+1)),C
250 NEXT J,I
260 NEXT K
270 COLOR 6:LOCATE 2,1:PRINT "A wire frame of";N*M;"points"
280 COLOR 7:LOCATE 0,23
