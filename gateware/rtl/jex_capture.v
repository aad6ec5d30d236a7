// A core, but for its match units and expressions, which stand beside it in the module of the core since each
// is different. `now` and `changed` are the trigger bits of a sample for the units; `match` comes back a clock
// later, and `holds` another clock later. The data waits for them: DATA_STAGES is 2.
//
// FREE: a core without a trigger (Lite), which has one window, from the first sample on after it was armed. Its
// data may come at any stage; `trig`, `match` and `holds` are 0, and its samples have no mark.
module jex_capture #(
    parameter NUMBER = 0,
    parameter DATA_WIDTH = 1,
    parameter TRIGGER_WIDTH = 1,
    parameter FALLING = 0,
    parameter LEVELS = 1,
    parameter ANY = 0,
    parameter FORCE_FALLING = 0,
    parameter FREE = 0,
    parameter FREE_START = 0, // the first window after configuration has no trigger
    parameter START = 1, // captures after configuration, without being armed
    parameter DATA_STAGES = 2,
    parameter ARM_STAGES = 1,
    parameter STYLE = "block",
    parameter ADDRESS_BITS = 2, // of all samples
    parameter DEPTH = 4, // samples of a segment
    parameter AMOUNT = 4, // samples of a window
    parameter POSITION = 0,
    parameter WINDOWS = 1,
    parameter COUNT_BITS = 1 // for a number up to WINDOWS
) (
    input wire clk,
    input wire [DATA_WIDTH-1:0] data,
    input wire [TRIGGER_WIDTH-1:0] trig,
    output wire [TRIGGER_WIDTH-1:0] now,
    output wire [TRIGGER_WIDTH-1:0] changed,
    input wire [15:0] match,
    input wire [15:0] holds,
    input wire ctl_clock,
    input wire ctl_select,
    input wire ctl_capture,
    input wire ctl_shift,
    input wire ctl_update,
    input wire ctl_tdi,
    output wire ctl_tdo,
    output wire load,
    output wire [15:0] windows,
    output wire done,
    output reg [31:0] seen
);

    localparam [31:0] TARGET = WINDOWS;
    localparam SAMPLE_WIDTH = FREE != 0 ? DATA_WIDTH : DATA_WIDTH + 1;

    // A sample and the commands that came before it go side by side: stage 1 is as taken, in 2 the units have
    // judged it, in 3 the expressions. An arm command is seen to be new at the sample before its first one, or
    // later where the data waits for nobody: the command settles first, then it is compared with.
    wire arm;
    wire force_line;
    wire arm_1;
    wire force_1;
    wire [DATA_WIDTH-1:0] data_1;
    wire valid_1;
    jex_input #(
        .WIDTH(DATA_WIDTH + TRIGGER_WIDTH + 2),
        .FALLING(FALLING)
    ) sampler (
        .clk(clk),
        .in({arm, force_line, data, trig}),
        .sample({arm_1, force_1, data_1, now}),
        .valid(valid_1)
    );

    // An edge needs two samples.
    reg [TRIGGER_WIDTH-1:0] previous;
    reg has_previous = 1'b0;
    always @(posedge clk) begin
        previous <= now;
        has_previous <= valid_1;
    end
    assign changed = (now ^ previous) & {TRIGGER_WIDTH{has_previous}};

    wire settled_arm;
    wire known_arm;
    wire force_3;
    wire was_force;
    wire [DATA_WIDTH-1:0] data_3;
    wire valid_3;
    wire [15:0] match_3;
    jex_delay #(
        .WIDTH(1),
        .STAGES(ARM_STAGES)
    ) settling (
        .clk(clk),
        .in(arm_1),
        .out(settled_arm)
    );
    jex_delay #(
        .WIDTH(1)
    ) compared (
        .clk(clk),
        .in(settled_arm),
        .out(known_arm)
    );
    jex_delay #(
        .WIDTH(DATA_WIDTH + 2),
        .STAGES(DATA_STAGES)
    ) delay (
        .clk(clk),
        .in({valid_1, force_1, data_1}),
        .out({valid_3, force_3, data_3})
    );
    jex_delay #(
        .WIDTH(17)
    ) late (
        .clk(clk),
        .in({match, force_3}),
        .out({match_3, was_force})
    );
    wire restart = settled_arm ^ known_arm;
    wire forced = FORCE_FALLING != 0 ? was_force & ~force_3 : force_3 & ~was_force;

    wire running;
    wire waiting;
    wire stored;
    wire mark;
    wire trigger;
    wire [3:0] level;
    wire [COUNT_BITS-1:0] finished;
    wire [ADDRESS_BITS-1:0] write_address;
    jex_levels #(
        .LEVELS(LEVELS),
        .ANY(ANY)
    ) levels (
        .clk(clk),
        .holds(holds),
        .valid(valid_3),
        .start_over(restart | mark | ~waiting),
        .level(level),
        .trigger(trigger)
    );
    jex_control #(
        .ADDRESS_BITS(ADDRESS_BITS),
        .DEPTH(DEPTH),
        .WINDOWS(WINDOWS),
        .COUNT_BITS(COUNT_BITS),
        .AMOUNT(AMOUNT),
        .POSITION(POSITION),
        .FREE(FREE),
        .FREE_START(FREE_START),
        .START(START)
    ) control (
        .clk(clk),
        .restart(restart),
        .valid(valid_3),
        .trigger(FREE == 0 & (trigger | forced)),
        .running(running),
        .waiting(waiting),
        .stored(stored),
        .mark(mark),
        .address(write_address),
        .windows(finished)
    );
    assign windows = {{16 - COUNT_BITS{1'b0}}, finished};
    assign done = finished == TARGET[COUNT_BITS-1:0];

    initial seen = 32'd0;
    always @(posedge clk)
        if (restart) seen <= 32'd0;
        else if (stored) seen <= seen | {holds, match_3};

    wire [ADDRESS_BITS-1:0] read_address;
    wire [SAMPLE_WIDTH-1:0] sample;
    wire [SAMPLE_WIDTH-1:0] read_data;
    assign sample[DATA_WIDTH-1:0] = data_3;
    generate
        if (FREE == 0) begin : marked
            assign sample[DATA_WIDTH] = mark;
        end
    endgenerate
    jex_memory #(
        .WIDTH(SAMPLE_WIDTH),
        .ADDRESS_BITS(ADDRESS_BITS),
        .STYLE(STYLE)
    ) memory (
        .write_clock(clk),
        .write(stored),
        .write_address(write_address),
        .write_data(sample),
        .read_clock(ctl_clock),
        .read_address(read_address),
        .read_data(read_data)
    );

    wire [COUNT_BITS-1:0] known;
    jex_counter_sync #(
        .WIDTH(COUNT_BITS)
    ) known_sync (
        .clk(clk),
        .number(finished),
        .other_clock(ctl_clock),
        .taken_over(known)
    );
    wire known_done = known == TARGET[COUNT_BITS-1:0];

    jex_readout #(
        .NUMBER(NUMBER),
        .WIDTH(SAMPLE_WIDTH),
        .ADDRESS_BITS(ADDRESS_BITS)
    ) readout (
        .ctl_clock(ctl_clock),
        .ctl_select(ctl_select),
        .ctl_capture(ctl_capture),
        .ctl_shift(ctl_shift),
        .ctl_update(ctl_update),
        .ctl_tdi(ctl_tdi),
        .ctl_tdo(ctl_tdo),
        .arm(arm),
        .force_line(force_line),
        .load(load),
        .status({{16 - COUNT_BITS{1'b0}}, known, 4'd0, level, 6'd0, known_done, running}),
        .seen(seen),
        .address(read_address),
        .sample(read_data)
    );

endmodule
