// Second boss, 160 x 160: an eight-sided fortress with a great eye.
#include "common.inc"
#include "enemies.inc"
#include "bosses.inc"
#declare OPEN = 1;
#local O = array[1];

// outer horns
Both(union {
  object { Plate(array[8]{<34,60>,<48,79>,<58,74>,<72,60>,<79.5,40>,<79.5,14>,<66,22>,<52,44>}, -6, 6, 4.4) Hull(C_GunD) }
  object { Plate(array[5]{<48,72>,<57,67>,<68,54>,<73,40>,<58,52>}, 5, 10, 2.2) Paint(C_Oxide) }
  object { Plate(array[8]{<79.5,10>,<79.5,-26>,<74,-46>,<64,-66>,<54,-79>,<52,-56>,<62,-30>,<64,4>}, -6, 6, 4.4) Hull(C_GunD) }
  object { Plate(array[5]{<76,4>,<75,-24>,<68,-46>,<69,-24>,<69,2>}, 5, 10, 2) Paint(C_Oxide) }
  object { Plate(array[3]{<66.5,-46>,<64,-62>,<56,-76>}, 5, 9, 1.2) Metal(C_Bone) }
  cylinder { <58,12,2>, <74,12,2>, 5 Metal(C_Gun) }
  cylinder { <30,56,0>, <58,62,0>, 5 Metal(C_Gun) }
  cylinder { <50,46,0>, <66,52,0>, 5 Metal(C_Gun) }
  cylinder { <50,-46,0>, <64,-50,0>, 5 Metal(C_Gun) }
  Lamps(72.4, -4, 72.4, -30, 10, 6, 1.4, C_Red)
  Lamps(52, 66, 68, 47, 10, 5, 1.5, C_Amber)
})
// main body
NGon(8, 70, 22.5, O)
object { Plate(O, -4, 8, 5) Hull(C_GunD) }
// eight armour petals
Around(object { Plate(array[6]{<34,-13>,<56,-20>,<61.5,-16>,<61.5,16>,<56,20>,<34,13>}, 7, 14, 3.4) Hull(C_Gun) }, 8)
#for (I, 0, 7)
  union {
    #if (mod(I, 2) = 0) Vent(0, 51, 14, 17, 9, 4) #else object { Plate(array[4]{<-8,57>,<8,57>,<6,46>,<-6,46>}, 13, 16, 1.4) Paint(C_Oxide) } #end
    Lamps(-6, 40, 6, 40, 14, 4, 1.1, C_Amber)
    rotate z*45*I
  }
#end
Around(object { union { box { <33,-1.1,6>, <64,1.1,9.4> Paint(C_GunDD) } rotate z*22.5 } }, 8)
// corner turrets
Both(object { Turret(25.5, 61.5, 10, 5.6, 8) })
Both(object { Turret(61.5, 25.5, 10, 5.6, 8) })
// trail launchers: two square mouths, low on either side
Both(union {
  object { Plate(array[6]{<33,-26>,<57,-26>,<58,-54>,<54,-63>,<36,-63>,<32,-54>}, 6, 20, 3) Hull(C_Gun) }
  object { Plate(array[4]{<36,-30>,<54,-30>,<53,-40>,<37,-40>}, 19, 22, 1.2) Paint(C_Oxide) }
  object { Plate(array[4]{<36.5,-43>,<53.5,-43>,<53.5,-59>,<36.5,-59>}, 19, 20.6, 0.4) Matt(C_Dark) }
  cylinder { <45,-51,19>, <45,-51,21>, 7.2 Glow(srgb <0.8,0.12,0.06>, 1) }
  cylinder { <45,-51,20>, <45,-51,22>, 5.0 Glow(C_Amber, 1) }
  cylinder { <45,-51,20>, <45,-51,23>, 2.4 Glow(C_Yellow, 1) }
  Lamps(38, -35, 52, -35, 22, 4, 1.2, C_Amber)
})
// centre-bottom gun battery
object { SymPlate(array[6]{<0,-34>,<17,-36>,<20,-56>,<15,-70>,<6,-76>,<0,-77>}, 4, 20, 3.6) Hull(C_GunD) }
object { SymPlate(array[4]{<0,-40>,<10,-41>,<8,-54>,<0,-56>}, 19, 23, 1.6) Paint(C_Oxide) }
#for (I, -1, 1) object { Cannon(10*I, -56, -76.5, 18, 2.9) } #end
// inner ring and the eye
torus { 33, 4.4 rotate x*90 translate z*12 Metal(C_Gun) }
Around(object { union { cylinder { <27,0,12>, <39,0,12>, 3 Paint(C_GunDD) } sphere { <33,0,16>, 2 Glow(C_Red, 1) } } }, 16)
NGon(16, 29, 0, O)
object { Plate(O, 6, 15, 3) Hull(C_GunD) }
object { Core(0, 0, 15, 21, 8, C_Red, C_Yellow) }
sphere { 0, 1 scale <3, 11, 4> translate <0, 0, 19> Glow(srgb <0.18,0.0,0.0>, 1) }
// crest
object { SymPlate(array[5]{<0,79>,<6,76>,<9,58>,<4,40>,<0,38>}, 10, 22, 2.8) Hull(C_Gun) }
object { SymPlate(array[4]{<0,72>,<3,70>,<3,54>,<0,48>}, 21, 24, 1) Glow(C_Amber, 0.9) }
