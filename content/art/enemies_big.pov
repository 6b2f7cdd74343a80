// The 64 x 64 enemies, nose down. KIND chooses, F of N is the frame.
#include "common.inc"
#include "enemies.inc"

#switch (KIND)

#case (0) // barge: a long carrier with two flight decks
  union {
    Both(union {
      object { Plate(array[7]{<9,24>,<14,31>,<26,31>,<31.6,20>,<31.6,-14>,<25,-25>,<9,-16>}, -4, 3, 3) Paint(C_RustD) }
      object { Plate(array[4]{<14,20>,<26,18>,<26,-14>,<14,-11>}, 2, 4, 0.8) Matt(C_Dark) }
      #for (I, 0, 4) object { Plate(array[4]{<18,14.8 - 6*I>,<22,14.8 - 6*I>,<22,11.6 - 6*I>,<18,11.6 - 6*I>}, 3, 5, 0.2)
        Glow(C_Amber, (mod(I + 2*F, 3) = 0 ? 1 : 0.25)) } #end
      object { Plate(array[4]{<27.5,18>,<30,17>,<30,-12>,<27.5,-13>}, 2, 5, 0.8) Paint(C_Sand) }
      Gun(28.6, -6, -29, 5, 1.9)
      object { Jet(20, 29, 1, 4.4, -(2.4 + 2*P1), C_Amber, C_Yellow) }
    })
    Both(object { Plate(array[4]{<9,24>,<15,25>,<15,13>,<9,13>}, -3, 2.5, 1.2) Paint(C_Sand) })
    Both(object { Plate(array[4]{<9,2>,<15,2>,<15,-9>,<8,-12>}, -3, 2.5, 1.2) Paint(C_Sand) })
    object { SymPlate(array[8]{<0,30>,<8,28>,<11,18>,<11,-8>,<9,-20>,<5,-29>,<2,-31.8>,<0,-31.8>}, 0, 11, 3.6) Paint(C_Rust) }
    object { SymPlate(array[6]{<0,24>,<5,21>,<6,10>,<4,4>,<2,2>,<0,2>}, 10, 15, 1.8) Paint(C_RustD) }
    Both(object { Plate(array[4]{<6.6,8>,<9.4,6>,<8,-14>,<6,-10>}, 10, 12, 0.8) Paint(C_Sand) })
    object { Plate(array[4]{<-4,16>,<4,16>,<3.4,13>,<-3.4,13>}, 14, 16, 0.5) Glow(C_Amber, 0.9) }
    Eye(0, -9, 11.4, 4.6, C_Amber, C_Yellow)
    object { SymPlate(array[4]{<0,-17>,<3,-18>,<1.6,-28>,<0,-30>}, 9, 12.6, 0.8) Metal(C_Bone) }
  }
#break
#case (1) // hive: six cells that open one after another
  union {
    #local O = array[1]; NGon(6, 17.4, 0, O)
    #for (I, 0, 5)
      #local A = radians(30 + 60*I);
      union {
        NGon(6, 12.6, 0, O)
        object { Plate(O, -3, 4, 2.4) Paint(C_RustD) }
        NGon(6, 8.2, 0, O)
        object { Plate(O, 3, 4.4, 0.4) Matt(C_Dark) }
        sphere { 0, 1 scale <5.6, 5.6, 2.4> translate z*4 Glow(C_Amber, (mod(I + F, 3) = 0 ? 1 : 0.32)) }
        #if (mod(I + F, 3) = 0) sphere { 0, 1 scale <3, 3, 2> translate z*6 Glow(C_Yellow, 1) }
        #else object { Plate(array[4]{<-8,-0.6>,<8,-0.6>,<6,6.8>,<-6,6.8>}, 5, 7.4, 1) Paint(C_Sand) }
              object { Plate(array[4]{<-8,-1.4>,<8,-1.4>,<6,-6.8>,<-6,-6.8>}, 5, 7.4, 1) Paint(C_Sand) } #end
        translate <20.4*cos(A), 20.4*sin(A), 0>
      }
    #end
    NGon(6, 15, 30, O)
    object { Plate(O, 0, 9, 3) Paint(C_Rust) }
    Around(object { Plate(array[4]{<9,-2>,<13,-3>,<13,3>,<9,2>}, 8, 10.5, 0.8) Paint(C_RustD) rotate z*30 }, 6)
    sphere { 0, 1 scale <8, 8, 5> translate z*8 Metal(C_Sand) }
    Eye(0, 0, 12.6, 4, C_Amber, C_Yellow)
    Around(object { cone { <14,0,3>, 5, <32,0,3>, 0.6 Metal(C_Bone) } }, 6)
    scale <1, 1, 1>
  }
#break
#case (2) // fortress bomber: flying wing with bomb racks
  union {
    object { SymPlate(array[9]{<0,22>,<7,25>,<20,30>,<31.8,31.4>,<31.8,16>,<27,-4>,<17,-14>,<8,-26>,<0,-31.8>}, -2, 5, 3.6) Paint(C_Acid) }
    Both(union {
      object { Plate(array[4]{<23.5,27>,<29.2,28>,<29.2,16>,<25.6,4>}, 4, 6, 1) Paint(C_AcidD) }
      object { Plate(array[5]{<9,20>,<19,25>,<22,10>,<17,-6>,<10,-10>}, 4, 6.4, 1) Paint(C_AcidD) }
      #for (I, 0, 2)
        object { Ell(14.6 + (I = 1 ? 1 : 0), 15 - 8.4*I, 7, 3.6, 3.4, 3) Metal(C_Gun) }
        object { Ell(14.2 + (I = 1 ? 1 : 0), 15.2 - 8.4*I, 9.4, 1.7, 1.7, 1.2) Glow((mod(I + F, 2) = 0 ? C_Yellow : C_Red), (mod(I + F, 2) = 0 ? 1 : 0.6)) }
      #end
      cylinder { <26,10,4>, <26,26,4>, 4.2 Paint(C_AcidD) }
      sphere { 0, 1 scale <4.2, 6, 4.2> translate <26, 10, 4> Paint(C_Acid) }
      object { Jet(26, 27, 4, 3.4, -(3 + 2*F), C_Yellow, C_White) }
      Gun(22.5, -2, -20, 4, 1.9)
      Gun(9.6, -16, -30, 3, 1.7)
    })
    object { SymPlate(array[6]{<0,24>,<5,20>,<7,4>,<6,-14>,<3,-26>,<0,-29>}, 3, 11, 3) Paint(C_AcidD) }
    object { SymPlate(array[4]{<0,18>,<2.6,16>,<2.6,4>,<0,2>}, 10, 13, 1) Paint(C_Acid) }
    Eye(0, -4, 11, 4.2, C_Red, C_Yellow)
    object { Ell(0, -18, 10, 3, 5.4, 3) Glass(srgb <0.5, 0.1, 0.1>) }
  }
#break
#case (3) // citadel: an armoured square turret, four corner guns, core opens
  union {
    object { Plate(array[8]{<-31.6,24>,<-24,31.6>,<24,31.6>,<31.6,24>,<31.6,-24>,<24,-31.6>,<-24,-31.6>,<-31.6,-24>}, -8, 0, 3.4) Paint(C_GunD) }
    Around(object { union {
      object { Plate(array[4]{<-12,29>,<12,29>,<8,20>,<-8,20>}, -1, 3, 1.4) Paint(C_Brass) }
      object { Plate(array[4]{<-7,26.4>,<7,26.4>,<6,23.6>,<-6,23.6>}, 2, 4, 0.5) Glow(C_Red, (F = 0 ? 0.4 : 1)) }
    } }, 4)
    Around(object { union {
      cylinder { <21.4,21.4,-1>, <21.4,21.4,6>, 8.2 Paint(C_Gun) }
      torus { 7, 1.4 rotate x*90 translate <21.4,21.4,6> Metal(C_Brass) }
      sphere { 0, 1 scale <5.4, 5.4, 4> translate <21.4, 21.4, 6> Metal(C_Brass) }
    } }, 4)
    Both(object { union { Gun(2, 0, -11.6, 0, 1.7) Gun(-2, 0, -11.6, 0, 1.7) } rotate z*(F = 0 ? 0 : 24) translate <21.4, -21.4, 10> })
    Both(object { union { Gun(2, 0, -11.6, 0, 1.7) Gun(-2, 0, -11.6, 0, 1.7) } rotate z*(F = 0 ? 0 : 24) translate <21.4, 21.4, 10> })
    #local O = array[1]; NGon(8, 19.5, 22.5, O)
    object { Plate(O, 0, 8, 3) Paint(C_Brass) }
    NGon(8, 12.4, 22.5, O)
    object { Plate(O, 7, 8.6, 0.4) Matt(C_Dark) }
    sphere { 0, 1 GlowBall(C_Red, C_Yellow, (F = 0 ? 0.75 : 1)) scale <10.4, 10.4, 4> translate z*7 }
    Around(object { Plate(array[4]{<(F = 0 ? 1.6 : 7.4),-2.2>,<12.4,-6>,<12.4,6>,<(F = 0 ? 1.6 : 7.4),2.2>}, 10, 13, 1) Paint(C_Gun) rotate z*45 }, 4)
  }
#break
#end
