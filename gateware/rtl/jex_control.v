// Fills the windows one after the other: says where each sample goes and which one is the trigger sample.
//
// A window is a ring of AMOUNT samples. Until POSITION of them exist no trigger counts; the sample that triggers
// is marked, and AMOUNT - POSITION - 1 more follow. With FREE the window after `restart`, which comes one clock
// before its first sample, has no trigger and begins with that sample; FREE_START is the same for the first window
// after configuration, where START says whether the capture runs at all. The addresses from one window to the next,
// DEPTH, and AMOUNT are powers of two; AMOUNT - POSITION is 2 at least.
module jex_control #(
    parameter ADDRESS_BITS = 2,
    parameter DEPTH = 4,
    parameter WINDOWS = 1,
    parameter COUNT_BITS = 1,
    parameter AMOUNT = 4,
    parameter POSITION = 0,
    parameter FREE = 0,
    parameter FREE_START = 0,
    parameter START = 1
) (
    input wire clk,
    input wire restart,
    input wire valid,
    input wire trigger,
    output reg running,
    output wire waiting,
    output wire stored,
    output wire mark,
    output wire [ADDRESS_BITS-1:0] address,
    output reg [COUNT_BITS-1:0] windows
);

    // As vectors, of which the bits are taken that are needed.
    localparam [31:0] ALL = AMOUNT - 1;
    localparam [31:0] BEFORE = POSITION;
    localparam [31:0] BEHIND = AMOUNT - POSITION - 2;
    localparam [31:0] STEP = DEPTH;
    localparam [31:0] LAST = WINDOWS - 1;
    localparam [31:0] ONE = 1;
    localparam AB = ADDRESS_BITS;

    // Samples still to come before a trigger counts, or behind the present one in the window.
    reg [AB-1:0] count;
    reg after; // the window needs no trigger any more
    reg [AB-1:0] offset;
    reg [AB-1:0] base;

    initial begin
        running = START != 0;
        after = FREE_START != 0;
        count = FREE_START != 0 ? ALL[AB-1:0] : BEFORE[AB-1:0];
        offset = {AB{1'b0}};
        base = {AB{1'b0}};
        windows = {COUNT_BITS{1'b0}};
    end

    wire none_left = ~|count;
    wire [AB-1:0] one_less = (count - ONE[AB-1:0]) & ALL[AB-1:0];
    wire ends = stored & after & none_left;

    assign waiting = running & ~after;
    assign stored = valid & running;
    assign mark = stored & ~after & none_left & trigger;
    assign address = base | offset;

    always @(posedge clk)
        if (restart) begin
            running <= 1'b1;
            after <= FREE != 0;
            count <= FREE != 0 ? ALL[AB-1:0] : BEFORE[AB-1:0];
            offset <= {AB{1'b0}};
            base <= {AB{1'b0}};
            windows <= {COUNT_BITS{1'b0}};
        end else if (ends) begin
            running <= windows != LAST[COUNT_BITS-1:0];
            after <= 1'b0;
            count <= BEFORE[AB-1:0];
            offset <= {AB{1'b0}};
            base <= base + STEP[AB-1:0];
            windows <= windows + ONE[COUNT_BITS-1:0];
        end else if (stored) begin
            offset <= (offset + ONE[AB-1:0]) & ALL[AB-1:0];
            if (mark) begin
                after <= 1'b1;
                count <= BEHIND[AB-1:0];
            end else if (~none_left) count <= one_less;
        end

endmodule
