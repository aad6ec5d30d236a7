-- Signals that are made of others, with and without a net in the translation.
library ieee; use ieee.std_logic_1164.all;
package kinds is
  type Op_T is (ADD, SUB, NOP);
  type Lane_T is record Valid : std_logic; Pad : std_logic_vector(0 to 2); end record;
  type Lanes_T is array (natural range <>) of Lane_T;
  type Ctrl_T is record
    Alu_Op : std_logic_vector(3 downto 0); Op : Op_T; Count : integer range 0 to 5; Lane : Lane_T;
    Pipe : Lanes_T(2 downto 1);
  end record;
  type Words_T is array (natural range <>) of std_logic_vector(7 downto 0);
  type Open_T is record Data : std_logic_vector; V : std_logic; end record;
end package;
library ieee; use ieee.std_logic_1164.all; use work.kinds.all;
entity Stage is port (Clk : in std_logic; C : in Ctrl_T; W : in Words_T(0 to 1); Q : out Ctrl_T); end entity;
architecture rtl of Stage is begin
  process (Clk) begin if rising_edge(Clk) then Q <= C; end if; end process;
end architecture;
library ieee; use ieee.std_logic_1164.all; use work.kinds.all;
entity top is port (clk : in std_logic; Many : in Words_T(0 to 33)); end entity;
architecture rtl of top is
  type Flags_T is array (Op_T) of std_logic;
  type Down_T is array (Op_T range SUB downto ADD) of std_logic;
  type Matrix_T is array (0 to 1, 3 downto 2) of std_logic;
  type Memory_T is array (0 to 63) of std_logic_vector(7 downto 0);
  signal Ctrl, Never, Result : Ctrl_T;
  signal Words : Words_T(1 downto 0); signal Memory : Memory_T;
  signal Flags : Flags_T; signal Down : Down_T; signal Matrix : Matrix_T;
  signal Open_R : Open_T(Data(3 downto 1)); signal Bottom : integer range -2 to 5;
  signal Ops : Words_T(5 to 4);
begin
  Ctrl.Alu_Op <= "0010"; Ctrl.Op <= SUB when clk = '1' else ADD; Ctrl.Lane <= (clk, (0 => '1', others => clk));
  Words(1) <= (others => clk); Words(0) <= "0000111" & clk;
  U_Stage : entity work.Stage port map (clk, Ctrl, Words, Result);
end architecture;

--= top:top clk Ctrl.Lane.Valid Ctrl.Pipe[2].Valid Ctrl.Pipe[1].Valid Never.Lane.Valid
--= Never.Pipe[2].Valid Never.Pipe[1].Valid Result.Lane.Valid Result.Pipe[2].Valid Result.Pipe[1].Valid Open_R.V
--= Many[0..33][7:0]
--= Ctrl.Alu_Op[3:0]! Ctrl.Op[1:0] Ctrl.Count[2:0] Ctrl.Lane.Pad[0:2]!0 Ctrl.Pipe[2].Pad[0:2] Ctrl.Pipe[1].Pad[0:2]
--= Never.Alu_Op[3:0] Never.Op[1:0] Never.Count[2:0] Never.Lane.Pad[0:2] Never.Pipe[2].Pad[0:2]
--= Never.Pipe[1].Pad[0:2] Result.Alu_Op[3:0] Result.Op[1:0] Result.Count[2:0] Result.Lane.Pad[0:2]
--= Result.Pipe[2].Pad[0:2] Result.Pipe[1].Pad[0:2] Words[1][7:0] Words[0][7:0]!7!6!5!4!3!2!1
--= Flags[0:2] Down[1:0] Matrix[0][3:2] Matrix[1][3:2] Open_R.Data[3:1] Bottom[3:0]
--= top/U_Stage:Stage Clk C.Lane.Valid C.Pipe[2].Valid C.Pipe[1].Valid
--= Q.Lane.Valid Q.Pipe[2].Valid Q.Pipe[1].Valid
--= C.Alu_Op[3:0]! C.Op[1:0] C.Count[2:0] C.Lane.Pad[0:2]!0 C.Pipe[2].Pad[0:2] C.Pipe[1].Pad[0:2]
--= W[0][7:0] W[1][7:0]!7!6!5!4!3!2!1
--= Q.Alu_Op[3:0] Q.Op[1:0] Q.Count[2:0] Q.Lane.Pad[0:2] Q.Pipe[2].Pad[0:2] Q.Pipe[1].Pad[0:2]
